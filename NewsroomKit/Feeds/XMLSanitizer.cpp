#include "NewsroomKit/Feeds/XMLSanitizer.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {
namespace {

constexpr bool isForbiddenByte(char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

constexpr bool isForbidden(std::uint32_t codePoint) {
    if (codePoint < 0x20) return isForbiddenByte(static_cast<char>(codePoint));
    return (codePoint >= 0xD800 && codePoint <= 0xDFFF) || codePoint == 0xFFFE ||
           codePoint == 0xFFFF || codePoint > 0x10FFFF;
}

/// U+FFFE and U+FFFF.
bool isNoncharacterAt(std::string_view text, std::size_t at) {
    const auto character = text.substr(at, 3);
    return character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF";
}

/// Length of a reference such as "&#x1F;" to a forbidden character, else 0.
std::size_t forbiddenReferenceLength(std::string_view text, std::size_t at) {
    std::size_t digits = at + 2;
    const bool hexadecimal = digits < text.size() && text[digits] == 'x';
    if (hexadecimal) ++digits;
    const char* const end = text.data() + text.size();
    std::uint32_t value = 0;
    const auto [stop, error] =
        std::from_chars(text.data() + digits, end, value, hexadecimal ? 16 : 10);
    if (error == std::errc::invalid_argument || stop == end || *stop != ';') return 0;
    if (error == std::errc() && !isForbidden(value)) return 0;
    return static_cast<std::size_t>(stop - text.data()) + 1 - at;
}

bool hasForbiddenReference(std::string_view text, std::size_t begin, std::size_t end) {
    for (auto at = text.find("&#", begin); at < end; at = text.find("&#", at + 2)) {
        if (forbiddenReferenceLength(text, at) > 0) return true;
    }
    return false;
}

bool hasNoncharacter(std::string_view text, std::size_t begin, std::size_t end) {
    for (auto at = text.find('\xEF', begin); at < end; at = text.find('\xEF', at + 1)) {
        if (isNoncharacterAt(text, at)) return true;
    }
    return false;
}

/// Signs of forbidden characters in a block of text, computed without branches so that the compiler
/// vectorises the loop: nearly every feed is clean and costs no more than this.
struct BlockSigns {
    unsigned char forbidden = 0;
    unsigned char reference = 0;
    unsigned char noncharacter = 0;
};

BlockSigns signsIn(std::string_view text, std::size_t begin, std::size_t end) {
    BlockSigns signs;
    const char* const bytes = text.data();
    for (auto at = begin; at < end; ++at) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        signs.forbidden |= static_cast<unsigned char>((byte < 0x20) & (byte != '\t') &
                                                      (byte != '\n') & (byte != '\r'));
        signs.reference |= static_cast<unsigned char>((byte == '&') & (bytes[at + 1] == '#'));
        signs.noncharacter |= static_cast<unsigned char>(byte == 0xEF);
    }
    return signs;
}

bool isClean(std::string_view text) {
    constexpr std::size_t blockSize = 1024;
    if (text.empty()) return true;
    // The last byte has no successor.
    const auto last = text.size() - 1;
    if (isForbiddenByte(text[last])) return false;
    for (std::size_t begin = 0; begin < last; begin += blockSize) {
        const auto end = std::min(begin + blockSize, last);
        const auto signs = signsIn(text, begin, end);
        if (signs.forbidden != 0) return false;
        if (signs.reference != 0 && hasForbiddenReference(text, begin, end)) return false;
        if (signs.noncharacter != 0 && hasNoncharacter(text, begin, end)) return false;
    }
    return true;
}

bool isSkippedAtStart(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || isForbiddenByte(c);
}

std::string_view withoutStart(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    while (!text.empty()) {
        if (text.starts_with(byteOrderMark)) {
            text.remove_prefix(byteOrderMark.size());
        } else if (isSkippedAtStart(text.front())) {
            text.remove_prefix(1);
        } else {
            break;
        }
    }
    return text;
}

std::string_view withoutDeclaration(std::string_view text) {
    constexpr std::string_view opening = "<?xml";
    if (!text.starts_with(opening) || text.size() == opening.size()) return text;
    // "<?xml-stylesheet" is not a declaration.
    if (!isSkippedAtStart(text[opening.size()])) return text;
    const auto end = text.find("?>");
    return end == std::string_view::npos ? text : text.substr(end + 2);
}

constexpr auto none = std::string_view::npos;

/// The position after the first `ending`.
std::size_t behind(std::string_view text, std::string_view ending, std::size_t from) {
    const auto at = text.find(ending, from);
    return at == none ? text.size() : at + ending.size();
}

/// The position after the comment or instruction at `at`; `at` when neither begins there.
std::size_t behindRemark(std::string_view text, std::size_t at) {
    const auto rest = text.substr(at);
    if (rest.starts_with("<!--")) return behind(text, "-->", at + 4);
    if (rest.starts_with("<?")) return behind(text, "?>", at);
    return at;
}

/// The position after the document type at `at`, whose declarations may contain any character in
/// quotes. A comment between them may contain a single quote.
std::size_t behindDocumentType(std::string_view text, std::size_t at) {
    bool inSubset = false;
    for (++at; (at = text.find_first_of("<\"'[]>", at)) != none;) {
        const char c = text[at];
        if (c == '"' || c == '\'') {
            at = behind(text, text.substr(at, 1), at + 1);
            continue;
        }
        if (c == '<') {
            at = std::max(at + 1, behindRemark(text, at));
            continue;
        }
        if (c == '[' || c == ']') inSubset = c == '[';
        ++at;
        if (c == '>' && !inSubset) return at;
    }
    return text.size();
}

/// The position after the part at `at` in which "&" has no meaning; `at` when no such part begins
/// there.
std::size_t behindVerbatim(std::string_view text, std::size_t at) {
    const auto rest = text.substr(at);
    if (rest.starts_with("<![CDATA[")) return behind(text, "]]>", at);
    if (rest.starts_with("<!DOCTYPE")) return behindDocumentType(text, at);
    return behindRemark(text, at);
}

bool beginsReference(std::string_view text, std::size_t at,
                     const std::function<bool(std::string_view)>& isKnown) {
    constexpr std::size_t longestName = 64;
    const auto end = text.substr(at, longestName).find(';');
    if (end == none || end < 2) return false;
    auto name = text.substr(at + 1, end - 1);
    if (!name.starts_with('#')) return isKnown(name);
    name.remove_prefix(1);
    const bool hexadecimal = name.starts_with('x');
    if (hexadecimal) name.remove_prefix(1);
    return !name.empty() && std::all_of(name.begin(), name.end(), [&](char c) {
        return hexadecimal ? hexValue(c) >= 0 : isASCIIDigit(c);
    });
}

/// The name of the start tag at `at` without its prefix; empty when none begins there.
std::string_view rootName(std::string_view text, std::size_t at) {
    constexpr std::size_t longestRoot = 64;
    const auto tag = text.substr(at + 1, longestRoot);
    const auto name = tag.substr(0, tag.find_first_of(" \t\r\n/<>"));
    return name.substr(name.rfind(':') + 1);
}

}  // namespace

std::string withStrayAmpersandsEscaped(std::string_view document,
                                       const std::function<bool(std::string_view)>& isKnown) {
    std::string escaped;
    escaped.reserve(document.size() + document.size() / 16);
    std::size_t copied = 0;
    for (auto at = document.find_first_of("<&"); at != none;
         at = document.find_first_of("<&", at)) {
        if (document[at] == '<') {
            at = std::max(at + 1, behindVerbatim(document, at));
            continue;
        }
        const auto name = at++;
        if (beginsReference(document, name, isKnown)) continue;
        escaped.append(document.substr(copied, at - copied)).append("amp;");
        copied = at;
    }
    return escaped.append(document.substr(copied));
}

bool isMeantAsFeed(std::string_view document) {
    if (!document.starts_with('<')) return false;
    for (auto at = document.find('<'); at != none; at = document.find('<', at + 1)) {
        const auto name = rootName(document, at);
        for (const std::string_view root : {"rss", "feed", "rdf"}) {
            if (equalsLowercase(name, root)) return true;
        }
        for (const std::string_view part : {"html", "head", "body"}) {
            if (equalsLowercase(name, part)) return false;
        }
    }
    return false;
}

std::string_view withoutForbiddenCharacters(std::string_view text, std::string& storage) {
    text = withoutDeclaration(withoutStart(text));
    if (isClean(text)) return text;
    std::string kept;
    kept.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        std::size_t skipped = 0;
        if (isForbiddenByte(text[at])) skipped = 1;
        if (text[at] == '\xEF' && isNoncharacterAt(text, at)) skipped = 3;
        if (text[at] == '&' && text.substr(at).starts_with("&#")) {
            skipped = forbiddenReferenceLength(text, at);
        }
        if (skipped == 0) kept.push_back(text[at]);
        at += skipped > 0 ? skipped : 1;
    }
    // `text` may lie in `storage`, so it is replaced only now.
    storage = std::move(kept);
    return storage;
}

}  // namespace kit
