#include "NewsroomKit/Feeds/NonTextElements.h"

#include <array>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {
namespace {

constexpr auto none = std::string_view::npos;

constexpr std::array<std::string_view, 10> embeddedNames{"script",   "style", "noscript", "iframe",
                                                         "object",   "form",  "button",   "select",
                                                         "textarea", "figure"};

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

std::string_view embeddedNameAt(std::string_view html, std::size_t at) {
    for (const auto name : embeddedNames) {
        if (standsAt(html, at, name)) return name;
    }
    return {};
}

/// The position after the closing tag of `name`.
std::size_t endOfElement(std::string_view html, std::size_t from, std::string_view name) {
    for (auto at = html.find("</", from); at != none; at = html.find("</", at + 2)) {
        if (!standsAt(html, at + 2, name)) continue;
        const auto close = html.find_first_not_of(whiteSpace, at + 2 + name.size());
        if (close != none && html[close] == '>') return close + 1;
    }
    return html.size();
}

}  // namespace

std::string_view withoutEmbeddedElements(std::string_view html, std::string& storage) {
    storage.clear();
    std::size_t kept = 0;  // everything before it is in `storage` or removed
    for (auto at = html.find('<'); at != none; at = html.find('<', at)) {
        ++at;
        const auto name = embeddedNameAt(html, at);
        if (name.empty()) continue;
        const auto tagEnd = html.find('>', at + name.size());
        if (tagEnd == none) break;
        storage.append(html.substr(kept, at - 1 - kept));
        at = kept = endOfElement(html, tagEnd + 1, name);
    }
    if (kept == 0) return html;
    storage.append(html.substr(kept));
    return storage;
}

}  // namespace kit
