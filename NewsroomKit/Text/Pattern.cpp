#include "NewsroomKit/Text/Pattern.h"

#include <stdexcept>
#include <string>

#include <unicode/regex.h>
#include <unicode/unistr.h>

namespace kit {

namespace {

// One unit is 10,000 steps of ICU's match engine. Megabytes of text take a few hundred
// units with a well-behaved expression; a runaway search ends within a second or two.
constexpr std::int32_t stepLimit = 3'000;
constexpr std::int32_t backtrackLimitInBytes = 16 * 1024 * 1024;

icu::UnicodeString unicodeString(std::string_view utf8) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())));
}

}  // namespace

struct Pattern::Compiled {
    std::unique_ptr<icu::RegexPattern> pattern;
};

Pattern::Pattern(std::string_view expression, Letters letters) {
    const std::uint32_t flags = letters == Letters::ignoringCase ? UREGEX_CASE_INSENSITIVE : 0;
    UParseError where{};
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::RegexPattern> pattern(
        icu::RegexPattern::compile(unicodeString(expression), flags, where, status));
    if (U_FAILURE(status)) {
        throw std::invalid_argument("expression does not compile (" +
                                    std::string(u_errorName(status)) +
                                    "): " + std::string(expression));
    }
    compiled_ = std::make_unique<const Compiled>(Compiled{std::move(pattern)});
}

Pattern::~Pattern() = default;
Pattern::Pattern(Pattern&&) noexcept = default;
Pattern& Pattern::operator=(Pattern&&) noexcept = default;

bool Pattern::occursIn(std::string_view utf8) const {
    // ICU searches one piece of UTF-16 several times faster than UTF-8 in portions.
    const icu::UnicodeString text = unicodeString(utf8);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::RegexMatcher> matcher(compiled_->pattern->matcher(text, status));
    if (U_FAILURE(status)) return false;
    matcher->setTimeLimit(stepLimit, status);
    matcher->setStackLimit(backtrackLimitInBytes, status);
    const bool found = matcher->find(status) != 0;
    return U_SUCCESS(status) && found;
}

}  // namespace kit
