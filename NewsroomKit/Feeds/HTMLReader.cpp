#include "NewsroomKit/Feeds/HTMLReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

constexpr auto none = std::string_view::npos;

/// Elements that have lines of their own or end a line. Sorted.
constexpr std::array<std::string_view, 34> lineElements{
    "address", "article",  "aside",      "blockquote", "br",     "dd",   "details", "div", "dl",
    "dt",      "fieldset", "figcaption", "figure",     "footer", "h1",   "h2",      "h3",  "h4",
    "h5",      "h6",       "header",     "hr",         "li",     "main", "nav",     "ol",  "p",
    "pre",     "section",  "summary",    "table",      "tr",     "ul",   "video"};
static_assert(std::is_sorted(lineElements.begin(), lineElements.end()));

constexpr std::size_t longestElement = 12;
constexpr std::string_view continueReading = "Continue reading";

enum class ByteClass : unsigned char { text, space, control, markup, reference, bracket, wide };

/// Only these lead bytes can begin white space or a control character beyond ASCII.
constexpr std::array<ByteClass, 256> byteClasses = [] {
    std::array<ByteClass, 256> classes{};
    for (std::size_t byte = 0; byte < 0x20; ++byte) classes[byte] = ByteClass::control;
    for (char c : std::string_view("\t\n\v\f\r ")) {
        classes[static_cast<std::size_t>(c)] = ByteClass::space;
    }
    classes[0x7F] = ByteClass::control;
    classes['<'] = ByteClass::markup;
    classes['&'] = ByteClass::reference;
    classes[']'] = ByteClass::bracket;
    for (unsigned lead : {0xC2U, 0xE1U, 0xE2U, 0xE3U}) classes[lead] = ByteClass::wide;
    return classes;
}();

ByteClass classOf(char c) { return byteClasses[static_cast<unsigned char>(c)]; }

bool isLetterByte(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isNameByte(char c) { return isLetterByte(c) || (c >= '0' && c <= '9'); }

bool isControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character <= 0x9F);
}

}  // namespace

HTMLReader::HTMLReader(std::string_view html, Options options) : html_(html), options_(options) {}

std::string HTMLReader::read() {
    text_.reserve(std::min(html_.size(), options_.enough));
    while (at_ < html_.size() && text_.size() < options_.enough) {
        switch (classOf(html_[at_])) {
            case ByteClass::text: readText(); break;
            case ByteClass::space: readWhiteSpace(); break;
            case ByteClass::control: ++at_; break;
            case ByteClass::markup: readMarkup(); break;
            case ByteClass::reference: readReference(); break;
            case ByteClass::wide: readWideCharacter(); break;
            case ByteClass::bracket:
                if (inLeftoverCDATA_ && html_.substr(at_).starts_with("]]>")) {
                    inLeftoverCDATA_ = false;
                    at_ += 3;
                } else {
                    append(html_.substr(at_++, 1));
                }
                break;
        }
    }
    finishLink();
    return std::move(text_);
}

void HTMLReader::readText() {
    const auto begin = at_;
    while (at_ < html_.size() && classOf(html_[at_]) == ByteClass::text) ++at_;
    append(html_.substr(begin, at_ - begin));
}

void HTMLReader::readWhiteSpace() {
    const bool isBreak = html_[at_] == '\n' || html_[at_] == '\r';
    widenGap(isBreak && options_.keepsLineBreaks ? Gap::line : Gap::space);
    ++at_;
}

void HTMLReader::readReference() {
    const auto reference = characterReference(html_.substr(at_));
    if (reference) {
        appendCharacter(reference->character);
        at_ += reference->length;
    } else {
        append(html_.substr(at_++, 1));
    }
}

void HTMLReader::readWideCharacter() {
    const auto decoded = decodeUTF8(html_, at_);
    if (decoded.valid) {
        appendCharacter(withoutWindowsControls(decoded.value));
    } else {
        append(html_.substr(at_, decoded.length));
    }
    at_ += decoded.length;
}

/// Comments, declarations and processing instructions that are not closed run to the end, as
/// in a browser.
void HTMLReader::readMarkup() {
    constexpr std::string_view cdataStart = "<![CDATA[";
    const auto rest = html_.substr(at_);
    const auto skipPast = [this](std::string_view closing, std::size_t from) {
        const auto end = html_.find(closing, from);
        at_ = end == none ? html_.size() : end + closing.size();
    };
    if (rest.starts_with("<!--")) return skipPast("-->", at_ + 2);
    if (rest.starts_with(cdataStart)) {
        inLeftoverCDATA_ = true;
        at_ += cdataStart.size();
        return;
    }
    if (rest.starts_with("<!") || rest.starts_with("<?")) return skipPast(">", at_ + 2);
    const auto name = rest.starts_with("</") ? 2U : 1U;
    if (rest.size() > name && isLetterByte(rest[name])) return readTag();
    append(html_.substr(at_++, 1));
}

void HTMLReader::readTag() {
    const bool closes = html_[at_ + 1] == '/';
    const auto nameStart = at_ + (closes ? 2 : 1);
    auto nameEnd = nameStart;
    while (nameEnd < html_.size() && isNameByte(html_[nameEnd])) ++nameEnd;
    at_ = tagEnd(nameEnd);
    if (nameEnd - nameStart > longestElement) return;

    const auto name = lowercasedASCII(html_.substr(nameStart, nameEnd - nameStart));
    if (std::binary_search(lineElements.begin(), lineElements.end(), name)) {
        widenGap(Gap::line);
    } else if (name == "td" || name == "th") {
        widenGap(Gap::space);
    } else if (name == "a" && options_.readsLinks) {
        finishLink();
        if (!closes) openLink_ = Link{text_.size(), 0, html_.substr(nameEnd, at_ - nameEnd - 1)};
    }
}

/// Links do not nest: the start of one ends another that is open.
void HTMLReader::finishLink() {
    if (!openLink_) return;
    auto link = *openLink_;
    openLink_.reset();
    const auto words = std::string_view(text_).substr(link.begin);
    const auto name = trimWhitespaceAndNewlines(words);
    if (name.empty()) return;
    if (name.starts_with(continueReading)) {
        text_.resize(link.begin);
        widenGap(Gap::space);
        return;
    }
    link.begin += static_cast<std::size_t>(name.data() - words.data());
    link.end = text_.size();
    links_.push_back(link);
}

/// The position after the ">" that closes the tag; one inside a quoted value does not count. An
/// unmatched quotation mark counts as an ordinary character, so that a publisher's mistake costs
/// one tag and not the rest of the text.
std::size_t HTMLReader::tagEnd(std::size_t from) const {
    char previous = 0;
    for (auto at = from; at < html_.size(); ++at) {
        const char c = html_[at];
        if (c == '>') return at + 1;
        if ((c == '"' || c == '\'') && previous == '=') {
            // Fails at most once for each kind of mark, after the last one of its kind.
            const auto partner = html_.find(c, at + 1);
            if (partner != none) at = partner;
        }
        if (classOf(c) != ByteClass::space) previous = c;
    }
    return html_.size();
}

void HTMLReader::widenGap(Gap gap) { gap_ = std::max(gap_, gap); }

void HTMLReader::append(std::string_view text) {
    if (!text_.empty() && gap_ != Gap::none) text_ += gap_ == Gap::line ? '\n' : ' ';
    gap_ = Gap::none;
    text_ += text;
}

void HTMLReader::appendCharacter(char32_t character) {
    if (isWhitespaceOrNewline(character)) {
        const bool isBreak = character == '\n' || character == '\r';
        widenGap(isBreak && options_.keepsLineBreaks ? Gap::line : Gap::space);
    } else if (!isControl(character)) {
        std::string encoded;
        appendUTF8(character, encoded);
        append(encoded);
    }
}

}  // namespace kit
