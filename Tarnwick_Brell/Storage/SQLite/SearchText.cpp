#include "Tarnwick_Brell/Storage/SQLite/SearchText.h"

#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace app {

namespace {

using kit::decodeUTF8;

constexpr std::string_view kAuthor = "author:";

bool isQuote(char32_t c) { return c == U'"' || c == U'“' || c == U'”' || c == U'„'; }

// NUL would end the expression half-way.
bool isSpace(char32_t c) { return c == 0 || kit::isWhitespaceOrNewline(c); }

/// What the index makes words of: its tokenizer counts private characters, Apple's own logo
/// among them, as letters.
bool isIndexed(char32_t c) {
    return kit::isLetter(c) || kit::isNumber(c) || (c >= 0xE000 && c <= 0xF8FF);
}

bool hasIndexedCharacter(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto c = decodeUTF8(text, at);
        if (isIndexed(c.value)) return true;
        at += c.length;
    }
    return false;
}

/// The whole words among the text's first bytes.
std::string_view bounded(std::string_view text) {
    if (text.size() <= SearchText::kMostBytes) return text;
    const auto space = text.find_last_of(" \t\r\n", SearchText::kMostBytes);
    return text.substr(0, space == std::string_view::npos ? SearchText::kMostBytes : space);
}

/// One word or phrase as it was typed.
struct Term {
    std::string text{};
    bool isUnwanted = false;
    bool isOfAuthor = false;
    bool isBeginning = false;  ///< its last word may go on
    bool isOpen = false;       ///< it reaches to the end of what was typed

    std::string expression() const {
        // In quotes nothing has a meaning but the quote itself, and quotes never get this far.
        return (isOfAuthor ? "author : \"" : "\"") + text + (isBeginning ? "\" *" : "\"");
    }
};

class TermReader {
public:
    TermReader(std::string_view typed, SearchText::Authors authors)
        : typed_(typed), authors_(authors) {}

    /// False at the end of the text.
    bool next(Term& term) {
        while (hasMore() && isSpace(peek().value)) skip();
        if (!hasMore()) return false;
        term = {};
        if (peek().value == U'-') {
            term.isUnwanted = true;
            skip();
        }
        if (authors_ == SearchText::Authors::indexed) readAuthorMark(term);
        const bool quoted = hasMore() && isQuote(peek().value);
        if (quoted) {
            skip();
            readUntil(term, isQuote);
        } else {
            readUntil(term, [](char32_t c) { return isSpace(c) || isQuote(c); });
        }
        term.isOpen = !hasMore();
        if (quoted && hasMore()) skip();
        term.isBeginning = quoted ? takeStar() : term.text.ends_with('*');
        return true;
    }

private:
    bool hasMore() const { return at_ < typed_.size(); }
    kit::DecodedCodePoint peek() const { return decodeUTF8(typed_, at_); }
    void skip() { at_ += peek().length; }

    void readAuthorMark(Term& term) {
        const auto rest = typed_.substr(at_);
        if (kit::lowercasedASCII(rest.substr(0, kAuthor.size())) != kAuthor) return;
        const auto name = rest.substr(kAuthor.size());
        // With nothing behind it "author" is a word.
        if (name.empty() || isSpace(decodeUTF8(name, 0).value)) return;
        term.isOfAuthor = true;
        at_ += kAuthor.size();
    }

    template <class IsEnd>
    void readUntil(Term& term, IsEnd isEnd) {
        while (hasMore() && !isEnd(peek().value)) {
            const auto length = peek().length;
            term.text += peek().value == 0 ? " " : typed_.substr(at_, length);
            at_ += length;
        }
    }

    bool takeStar() {
        const bool star = hasMore() && typed_[at_] == '*';
        if (star) skip();
        return star;
    }

    std::string_view typed_;
    SearchText::Authors authors_;
    std::size_t at_ = 0;
};

void append(std::string& expression, std::string_view combiner, const Term& term) {
    if (!expression.empty()) expression += combiner;
    expression += term.expression();
}

}  // namespace

SearchText SearchText::parse(std::string_view typed, LastWord lastWord, Authors authors) {
    SearchText search;
    const auto text = kit::validUTF8(bounded(typed));
    TermReader reader(text, authors);
    for (Term term; reader.next(term);) {
        if (!hasIndexedCharacter(term.text)) continue;
        if (term.isUnwanted) {
            append(search.unwanted, " OR ", term);
            continue;
        }
        const bool mayGrow = lastWord == LastWord::stillTyped && term.isOpen &&
                             kit::characterCount(term.text) >= kShortestBeginning;
        term.isBeginning = term.isBeginning || mayGrow;
        append(search.wanted, " AND ", term);
    }
    return search;
}

SearchText SearchText::anyOf(const std::vector<std::string>& phrases) {
    SearchText search;
    for (const auto& phrase : phrases) {
        Term term{.text = kit::validUTF8(bounded(phrase))};
        std::erase_if(term.text, [](char c) { return c == '"' || c == '\0'; });
        if (hasIndexedCharacter(term.text)) append(search.wanted, " OR ", term);
    }
    return search;
}

}  // namespace app
