#include "NewsroomKit/Feeds/MarkupWriter.h"

#include <algorithm>
#include <array>

namespace kit {
namespace {

/// Elements that HTML writes without an end tag.
constexpr std::array<std::string_view, 13> voidElements{"area",   "base",  "br",    "col",  "embed",
                                                        "hr",     "img",   "input", "link", "meta",
                                                        "source", "track", "wbr"};

void appendEscaped(std::string_view text, std::string_view special, std::string& html) {
    while (!text.empty()) {
        const auto plain = std::min(text.find_first_of(special), text.size());
        html.append(text.substr(0, plain));
        if (plain == text.size()) return;
        switch (text[plain]) {
            case '&': html += "&amp;"; break;
            case '<': html += "&lt;"; break;
            case '>': html += "&gt;"; break;
            default: html += "&quot;"; break;
        }
        text.remove_prefix(plain + 1);
    }
}

}  // namespace

void appendStartTag(std::string_view name, const XMLAttributes& attributes, std::string& html) {
    html += '<';
    html += name;
    for (std::size_t index = 0; index < attributes.size(); ++index) {
        const auto attribute = attributes[index];
        if (attribute.hasPrefix) continue;
        html += ' ';
        html += attribute.name;
        html += "=\"";
        appendEscaped(attribute.value, "&<>\"", html);
        html += '"';
    }
    html += '>';
}

void appendEndTag(std::string_view name, std::string& html) {
    if (std::find(voidElements.begin(), voidElements.end(), name) != voidElements.end()) return;
    html += "</";
    html += name;
    html += '>';
}

void appendEscapedText(std::string_view text, std::string& html) {
    appendEscaped(text, "&<>", html);
}

}  // namespace kit
