#include "PressRoom/Archive/References.h"

#include <algorithm>

#include "PressRoom/World/Address.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

constexpr std::string_view kScheme = "https://";

/// The text without its elements.
std::string plain(std::string_view markup) {
    std::string text;
    bool isText = true;
    for (const char c : markup) {
        if (c == '<') isText = false;
        if (isText) text += c;
        if (c == '>') isText = true;
    }
    return text;
}

}  // namespace

References::References(const PublishedWorld& world) {
    for (const auto& source : world.sources()) {
        for (const auto& item : world.items(source)) items_.emplace(lookupKey(item.page), &item);
    }
    // A story may link to a page of another source, which takes precedence.
    for (const auto& source : world.sources()) {
        for (const auto& item : world.items(source)) {
            items_.emplace(lookupKey(item.link), &item);
            if (source.platform == Platform::googleNews)
                items_.emplace(lookupKey(googleNewsLink(item)), &item);
        }
    }
    for (const auto& source : world.sources()) {
        for (const auto& item : world.items(source)) {
            readLinks(item);
            add({.from = &item, .to = find(item.link)});
            add({.from = &item, .to = find(item.named), .isLink = false});
        }
    }
}

const Item* References::find(std::string_view address) const {
    if (!address.starts_with(kScheme)) return nullptr;
    const auto found = items_.find(lookupKey(address));
    return found == items_.end() ? nullptr : found->second;
}

std::vector<Reference> References::listOf(const Lists& lists, const Item& item) {
    const auto found = lists.find(&item);
    return found == lists.end() ? std::vector<Reference>() : found->second;
}

void References::readLinks(const Item& item) {
    const std::string_view html = item.html;
    for (auto at = html.find(kScheme); at != html.npos; at = html.find(kScheme, at + 1)) {
        const auto end = std::min(html.find_first_of("\"< \n", at), html.size());
        const auto rest = html.substr(end);
        // Posts show their links as text.
        const bool hasWords = rest.starts_with("\">");
        const auto words = hasWords ? plain(rest.substr(2, rest.find("</a>") - 2)) : "";
        add({.from = &item, .to = find(html.substr(at, end - at)), .words = words});
    }
}

void References::add(Reference reference) {
    if (!reference.to || reference.to == reference.from) return;
    if (reference.to->appears > reference.from->appears) return;
    auto& list = of_[reference.from];
    if (std::ranges::find(list, reference.to, &Reference::to) != list.end()) return;
    to_[reference.to].push_back(reference);
    list.push_back(std::move(reference));
}

}  // namespace pressroom
