#include "NewsroomKit/Clusters/HeadlineTokens.h"

#include <utility>

#include "NewsroomKit/Clusters/ClusterVocabulary.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

bool isCurrencySign(char32_t c) { return c == U'$' || c == U'€' || c == U'£' || c == U'¥'; }

bool isApostrophe(char32_t c) { return c == U'\'' || c == U'\u2019' || c == U'\u2018'; }

bool isNumeric(std::string_view text) {
    std::size_t letters = 0;
    while (letters < text.size() && isASCIILetter(text[letters])) ++letters;
    return letters <= 2 && letters < text.size() && isASCIIDigit(text[letters]);
}

class Tokenizer {
public:
    explicit Tokenizer(std::string_view text) : folded_(fold(text)) {}

    std::vector<HeadlineToken> tokens() {
        while (at_ < folded_.size()) readNext();
        finish();
        return std::move(tokens_);
    }

private:
    void readNext() {
        const auto c = decodeUTF8(folded_, at_);
        const auto rest = std::string_view(folded_).substr(at_ + c.length);
        const bool isWordCharacter = c.value < 0x80
                                         ? isASCIIAlphanumeric(static_cast<char>(c.value))
                                         : isLetter(c.value) || isNumber(c.value);
        if (isWordCharacter) {
            if (token_.text.empty()) token_.currency = currency_;
            appendUTF8(c.value, token_.text);
        } else if (!continuesWord(c.value, rest)) {
            endWord(c.value, rest);
        }
        currency_ = isCurrencySign(c.value) ? c.value : 0;
        at_ += c.length;
    }

    /// True for what stands inside a word without ending it.
    bool continuesWord(char32_t c, std::string_view rest) {
        if (token_.text.empty()) return false;
        const bool betweenDigits =
            isASCIIDigit(token_.text.back()) && !rest.empty() && isASCIIDigit(rest.front());
        if (c == U'.' && betweenDigits) token_.text += '.';
        if ((c == U'.' || c == U',') && betweenDigits) return true;
        const bool endsHere = rest.empty() || !isASCIIAlphanumeric(rest.front());
        if (c == U'+' && endsHere) {
            token_.text += '+';
            return true;
        }
        if (!isApostrophe(c)) return false;
        const bool possessive =
            rest.starts_with('s') && (rest.size() == 1 || !isASCIIAlphanumeric(rest[1]));
        if (possessive) {
            finish();
            at_ += 1;
        }
        return true;
    }

    void endWord(char32_t c, std::string_view rest) {
        if (isCurrencySign(c) && !token_.text.empty() && isASCIIDigit(token_.text.front())) {
            token_.currency = c;
        }
        finish();
        if (c == U'(') inBrackets_ = true;
        if (c == U')') inBrackets_ = false;
        const auto labelEnd = c == U'[' ? rest.find(']') : std::string_view::npos;
        if (labelEnd != std::string_view::npos) at_ += labelEnd + 1;
        if (c == U'%') push("percent");
    }

    void finish() {
        if (token_.text.empty()) return;
        const bool isCent =
            token_.text == "cent" && !tokens_.empty() && tokens_.back().text == "per";
        if (isCent) tokens_.pop_back();
        if (isCent || token_.text == "pct") token_.text = "percent";
        token_.inBrackets = inBrackets_;
        token_.isNumber = isNumeric(token_.text);
        token_.key = wordKey(token_.text);
        tokens_.push_back(std::exchange(token_, {}));
    }

    void push(std::string_view word) {
        token_.text = word;
        finish();
    }

    std::string folded_;
    std::size_t at_ = 0;
    char32_t currency_ = 0;
    bool inBrackets_ = false;
    HeadlineToken token_;
    std::vector<HeadlineToken> tokens_;
};

}  // namespace

std::vector<HeadlineToken> headlineTokens(std::string_view text) {
    return Tokenizer(text).tokens();
}

}  // namespace kit
