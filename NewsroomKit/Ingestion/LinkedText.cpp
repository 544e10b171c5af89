#include "NewsroomKit/Ingestion/LinkedText.h"

#include <algorithm>
#include <optional>

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Text/Unicode.h"

namespace newsroom {

namespace {

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }

bool isTagNamed(std::string_view tag, std::string_view name) {
    if (tag.size() < name.size() || lowercasedASCII(tag.substr(0, name.size())) != name) return false;
    return tag.size() == name.size() || isSpace(tag[name.size()]) || tag[name.size()] == '/';
}

/// Where the tag that begins at `open` ends; a ">" inside quotes belongs to a value.
std::size_t tagEnd(std::string_view html, std::size_t open) {
    char quote = 0;
    for (std::size_t i = open + 1; i < html.size(); ++i) {
        const char c = html[i];
        if (quote) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return i;
        }
    }
    return std::string_view::npos;
}

class Reader {
public:
    LinkedText read(std::string_view html) {
        while (!html.empty()) {
            const auto open = html.find('<');
            result_.text += decodedEntities(html.substr(0, open));
            if (open == std::string_view::npos) break;
            auto end = tagEnd(html, open);
            // A quote that never closes must not swallow the rest of the text.
            if (end == std::string_view::npos) end = html.find('>', open);
            if (end == std::string_view::npos) break;
            tag(html.substr(open + 1, end - open - 1));
            html.remove_prefix(end + 1);
        }
        closeLink();
        return std::move(result_);
    }

private:
    void tag(std::string_view inside) {
        if (isTagNamed(inside, "a")) {
            closeLink();
            const auto address = attributeValue(inside, "href");
            if (address.starts_with("http://") || address.starts_with("https://")) {
                open_ = LinkedText::Link{result_.text.size(), 0, address};
            }
        } else if (isTagNamed(inside, "/a")) {
            closeLink();
        } else if (isTagNamed(inside, "/p") || isTagNamed(inside, "br") || isTagNamed(inside, "/li")) {
            result_.text += '\n';
        }
    }

    void closeLink() {
        if (!open_) return;
        open_->end = result_.text.size();
        result_.links.push_back(std::move(*open_));
        open_.reset();
    }

    LinkedText result_;
    std::optional<LinkedText::Link> open_;
};

}  // namespace

std::string attributeValue(std::string_view tag, std::string_view name) {
    std::size_t at = 0;
    while (at < tag.size() && !isSpace(tag[at])) ++at;
    while (at < tag.size()) {
        while (at < tag.size() && (isSpace(tag[at]) || tag[at] == '/')) ++at;
        const auto nameBegin = at;
        while (at < tag.size() && !isSpace(tag[at]) && tag[at] != '=') ++at;
        const auto found = lowercasedASCII(tag.substr(nameBegin, at - nameBegin));
        while (at < tag.size() && isSpace(tag[at])) ++at;
        std::string_view value;
        if (at < tag.size() && tag[at] == '=') {
            ++at;
            while (at < tag.size() && isSpace(tag[at])) ++at;
            const char quote = at < tag.size() && (tag[at] == '"' || tag[at] == '\'') ? tag[at] : '\0';
            if (quote) ++at;
            const auto begin = at;
            while (at < tag.size() && (quote ? tag[at] != quote : !isSpace(tag[at]))) ++at;
            value = tag.substr(begin, at - begin);
            if (quote && at < tag.size()) ++at;
        }
        if (found == name) return decodedEntities(value);
    }
    return {};
}

LinkedText linkedText(std::string_view html) { return Reader().read(html); }

}  // namespace newsroom
