#include <gtest/gtest.h>
#include <unicode/regex.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "NewsroomKit/Feeds/NonTextElements.h"
#include "NewsroomKit/Feeds/ImageExtractor.h"
#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Text/Unicode.h"

// The scanners written by hand against the expressions they stand for.
namespace kit {
namespace {

constexpr int samples = 20'000;

/// Texts made of the pieces that matter to an expression.
class Scribbler {
public:
    explicit Scribbler(std::vector<std::string> pieces) : pieces_(std::move(pieces)) {}

    std::string text() {
        std::string result;
        const auto count = std::uniform_int_distribution<>(0, 14)(random_);
        for (int i = 0; i < count; ++i) {
            result +=
                pieces_[std::uniform_int_distribution<std::size_t>(0, pieces_.size() - 1)(random_)];
        }
        return result;
    }

private:
    std::vector<std::string> pieces_;
    std::mt19937 random_{20261001};
};

class Expression {
public:
    explicit Expression(const char* pattern)
        : matcher_(icu::UnicodeString::fromUTF8(pattern), UREGEX_CASE_INSENSITIVE, status_) {}

    std::string removedFrom(const std::string& text) {
        const auto wide = icu::UnicodeString::fromUTF8(text);
        matcher_.reset(wide);
        std::string result;
        matcher_.replaceAll(icu::UnicodeString(), status_).toUTF8String(result);
        EXPECT_TRUE(U_SUCCESS(status_));
        return result;
    }

    std::vector<std::string> firstGroups(const std::string& text) {
        const auto wide = icu::UnicodeString::fromUTF8(text);
        matcher_.reset(wide);
        std::vector<std::string> groups;
        while (matcher_.find(status_)) {
            matcher_.group(1, status_).toUTF8String(groups.emplace_back());
        }
        return groups;
    }

private:
    UErrorCode status_ = U_ZERO_ERROR;
    icu::RegexMatcher matcher_;
};

TEST(NonTextElements, AreExactlyWhatTheExpressionMatches) {
    Expression expression(
        R"((?is)<(script|style|noscript|iframe|object|form|button|select|textarea|figure)[^>]*>.*?(?:</\1\s*>|$))");
    // clang-format off
    Scribbler scribbler({"<script", "<SCRIPT>", "</script", "</Script>", "</script \t\n>", "<form",
                         "<formula>", "</form>", "</formula>", "<figure class=\"a>b\">", "</figure>",
                         "<figcaption>", "<noscript>", "</noscript>", "<button/>", "</button", ">",
                         "<", "</", "a", "\nb", "<p>", " "});
    // clang-format on
    for (int i = 0; i < samples; ++i) {
        // A line break that ends the text is white space either way.
        const auto html = scribbler.text() + ".";
        std::string storage;
        ASSERT_EQ(withoutEmbeddedElements(html, storage), expression.removedFrom(html)) << html;
    }
}

TEST(ImageExtractor, IsTheFirstUsableMatchOfTheExpression) {
    Expression expression(R"(<img[^>]+src=["']([^"']+)["'])");
    Scribbler scribbler({"<img", "<IMG ", " src=", "SRC=\"", "src='", "\"", "'", ">",
                         "http://a.example/1", "http://a.example/emoji/1",
                         "http://a.example/pixel?a&amp;b", "https://b?c&amp;d", "<", " ",
                         "data-src=\"", "x", "\n"});
    const auto reference = [&](const std::string& html) -> std::optional<std::string> {
        for (const auto& group : expression.firstGroups(html)) {
            const auto decoded = decodedEntities(group);
            const std::string address(trimWhitespaceAndNewlines(decoded));
            if (address.starts_with("http") && address.find("/emoji/") == std::string::npos &&
                address.find("pixel") == std::string::npos) {
                return address;
            }
        }
        return std::nullopt;
    };
    int found = 0;
    for (int i = 0; i < samples; ++i) {
        const auto html = scribbler.text();
        const auto expected = reference(html);
        AddressBase base;
        ASSERT_EQ(firstPicture(html, base), expected) << html;
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, samples / 100) << "the texts must exercise the expression";
}

}  // namespace
}  // namespace kit
