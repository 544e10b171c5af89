#include "NewsroomKit/Ingestion/LinkedText.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kLongestTag = 4096;

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }

/// The name at the start of a tag's content, without the "/" of a closing tag.
std::string_view tagName(std::string_view inside) {
    if (inside.starts_with('/')) inside.remove_prefix(1);
    std::size_t length = 0;
    while (length < inside.size() && isASCIIAlphanumeric(inside[length])) ++length;
    return inside.substr(0, length);
}

bool isNamed(std::string_view name, std::span<const std::string_view> names) {
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view other) { return equalsLowercase(name, other); });
}

constexpr std::array<std::string_view, 18> kBlocks{"p",  "br", "div", "li", "ul",    "ol",
                                                   "h1", "h2", "h3",  "h4", "h5",    "h6",
                                                   "tr", "td", "th",  "hr", "table", "blockquote"};

/// Characters that are read as their plain forms.
constexpr std::array<std::pair<std::string_view, char>, 5> kPlainForms{{
    {"\u00A0", ' '},
    {"\u2019", '\''},
    {"\u2018", '\''},
    {"\u201C", '"'},
    {"\u201D", '"'},
}};

class Reader {
public:
    void read(std::string_view html) {
        html_ = html;
        at_ = 0;
        if (!result_.text.empty()) result_.text += ' ';
        result_.text.reserve(result_.text.size() + html.size() / 2);
        while (at_ < html_.size()) {
            const auto open = std::min(html_.find('<', at_), html_.size());
            appendText(html_.substr(at_, open - at_));
            at_ = open;
            if (open < html_.size()) markup();
        }
        closeLink();
    }

    LinkedText result() { return std::move(result_); }

private:
    void appendText(std::string_view raw) {
        if (raw.find_first_of("&\xC2\xE2\n\r\t") == std::string_view::npos) {
            result_.text += raw;
            return;
        }
        const std::string decoded = decodedEntities(raw);
        for (std::size_t at = 0; at < decoded.size();) at += appendPlain(decoded, at);
    }

    /// Appends the character at `at` in its plain form; returns its length.
    std::size_t appendPlain(std::string_view text, std::size_t at) {
        const auto rest = text.substr(at);
        for (const auto& [written, plain] : kPlainForms) {
            if (!rest.starts_with(written)) continue;
            result_.text += plain;
            return written.size();
        }
        // Lines of HTML end anywhere; an empty line separates paragraphs of plain text.
        if (isSpace(text[at])) {
            const auto end = std::min(rest.find_first_not_of(" \t\r\n\f"), rest.size());
            const auto space = rest.substr(0, end);
            const bool paragraph = std::count(space.begin(), space.end(), '\n') > 1;
            result_.text += paragraph ? '\n' : ' ';
            return end;
        }
        result_.text += text[at];
        return 1;
    }

    void markup() {
        if (html_.substr(at_).starts_with("<!--")) return skipTo("-->");
        const auto end = tagEnd(html_, at_);
        if (end == std::string_view::npos) {
            result_.text += '<';
            ++at_;
            return;
        }
        const auto inside = html_.substr(at_ + 1, end - at_ - 1);
        at_ = end + 1;
        tag(inside);
    }

    void tag(std::string_view inside) {
        const auto name = tagName(inside);
        const bool closes = inside.starts_with('/');
        if (equalsLowercase(name, "a")) {
            closeLink();
            if (!closes) openLink(inside);
        } else if (!closes && equalsLowercase(name, "script")) {
            skipTo("</script");
        } else if (!closes && equalsLowercase(name, "style")) {
            skipTo("</style");
        } else if (isNamed(name, kBlocks)) {
            result_.text += '\n';
        }
    }

    void openLink(std::string_view inside) {
        auto address = attributeValue(inside, "href");
        const auto scheme = std::string_view(address).substr(0, address.find(':'));
        if (equalsLowercase(scheme, "http") || equalsLowercase(scheme, "https")) {
            open_ = LinkedText::Link{.begin = result_.text.size(), .address = std::move(address)};
        }
    }

    void closeLink() {
        if (!open_) return;
        open_->end = result_.text.size();
        result_.links.push_back(std::move(*open_));
        open_.reset();
    }

    /// Skips past the next `ending`, given in lower case, or to the end of the text.
    void skipTo(std::string_view ending) {
        for (auto found = html_.find(ending[0], at_); found != std::string_view::npos;
             found = html_.find(ending[0], found + 1)) {
            if (!equalsLowercase(html_.substr(found, ending.size()), ending)) continue;
            at_ = found + ending.size();
            return;
        }
        at_ = html_.size();
    }

    std::string_view html_;
    std::size_t at_ = 0;
    LinkedText result_;
    std::optional<LinkedText::Link> open_;
};

/// Reads the attributes of a tag one after the other.
class Attributes {
public:
    explicit Attributes(std::string_view tag) : rest_(tag.substr(tagName(tag).size())) {}

    bool next() {
        skip([](char c) { return isSpace(c) || c == '/'; });
        if (rest_.empty()) return false;
        name_ = consume([](char c) { return !isSpace(c) && c != '='; });
        // Without this, a "=" without a name would loop for ever.
        if (name_.empty()) rest_.remove_prefix(1);
        value_ = {};
        skip(isSpace);
        if (!rest_.starts_with('=')) return true;
        rest_.remove_prefix(1);
        skip(isSpace);
        readValue();
        return true;
    }

    std::string_view name() const { return name_; }
    std::string_view value() const { return value_; }

private:
    template <class Test>
    std::string_view consume(Test test) {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), test);
        const auto consumed = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
        rest_.remove_prefix(consumed.size());
        return consumed;
    }
    template <class Test>
    void skip(Test test) {
        consume(test);
    }

    void readValue() {
        const char quote = rest_.starts_with('"') ? '"' : rest_.starts_with('\'') ? '\'' : '\0';
        if (quote == '\0') {
            value_ = consume([](char c) { return !isSpace(c); });
            return;
        }
        rest_.remove_prefix(1);
        value_ = consume([quote](char c) { return c != quote; });
        if (!rest_.empty()) rest_.remove_prefix(1);
    }

    std::string_view rest_;
    std::string_view name_;
    std::string_view value_;
};

}  // namespace

// Most links are of no interest, which their host shows without parsing them.
std::string linkHost(std::string_view address) {
    const auto begin = address.find("://");
    if (begin == std::string_view::npos) return {};
    auto authority = address.substr(begin + 3);
    authority = authority.substr(0, authority.find_first_of("/?#"));
    if (const auto at = authority.rfind('@'); at != std::string_view::npos) {
        authority.remove_prefix(at + 1);
    }
    return lowercasedASCII(authority.substr(0, authority.find(':')));
}

std::size_t tagEnd(std::string_view html, std::size_t open) {
    html = html.substr(0, open + kLongestTag);
    const auto first = open + 1;
    const bool begins = first < html.size() && (isASCIILetter(html[first]) || html[first] == '/' ||
                                                html[first] == '!' || html[first] == '?');
    if (!begins) return std::string_view::npos;
    auto at = first;
    while ((at = html.find_first_of("\"'>", at)) != std::string_view::npos) {
        if (html[at] == '>') return at;
        // Only values are quoted; an apostrophe elsewhere has no meaning for the tag.
        const bool isValue = html[html.find_last_not_of(" \t\r\n\f", at - 1)] == '=';
        const auto close = isValue ? html.find(html[at], at + 1) : at;
        if (close == std::string_view::npos) return html.find('>', at);
        at = close + 1;
    }
    return std::string_view::npos;
}

std::string attributeValue(std::string_view tag, std::string_view name) {
    for (Attributes attributes(tag); attributes.next();) {
        if (equalsLowercase(attributes.name(), name)) return decodedEntities(attributes.value());
    }
    return {};
}

LinkedText linkedText(std::span<const std::string_view> pieces) {
    Reader reader;
    for (const auto piece : pieces) reader.read(piece);
    return reader.result();
}

}  // namespace kit
