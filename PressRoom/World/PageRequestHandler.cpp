#include "PressRoom/World/PageRequestHandler.h"

#include <fmt/format.h>

#include "PressRoom/World/Address.h"
#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

Response storyPage(const Item& item, const std::string& feed) {
    const auto title = item.story->title.value_or(item.source->title);
    const auto body =
        fmt::format("<p><a href=\"{}\">{}</a></p>\n<article>\n{}\n</article>",
                    escaped(item.source->home), escaped(item.source->title), item.html);
    return htmlPage(
        200, title, body,
        fmt::format("<link rel=\"canonical\" href=\"{}\">\n{}", escaped(item.link), feed));
}

std::string feedLink(const WorldSource& source) {
    const bool isAtom = feedContentType(source.platform).starts_with("application/atom");
    return fmt::format(
        "<link rel=\"alternate\" type=\"application/{}+xml\" title=\"{}\" href=\"{}\">\n",
        isAtom ? "atom" : "rss", escaped(source.title), escaped(source.address));
}

}  // namespace

PageRequestHandler::PageRequestHandler(const PublishedWorld& world) : world_(world) {
    for (const auto& source : world_.sources()) {
        const auto key = lookupKey(source.home);
        homes_.emplace(key, &source);
        // The bare host too, unless it is another source's home.
        homes_.emplace(key.substr(0, key.find('/')), &source);
        for (const auto& item : world_.items(source)) {
            stories_.emplace(lookupKey(item.page), &item);
        }
    }
    // A story may link to a page of another source, which takes precedence.
    for (const auto& source : world_.sources()) {
        for (const auto& item : world_.items(source)) stories_.emplace(lookupKey(item.link), &item);
    }
}

std::optional<Response> PageRequestHandler::answer(const Request& request,
                                                   std::chrono::sys_seconds now) const {
    const auto key = lookupKey(request);
    if (auto response = page(key, now)) return response;
    // Sites redirect to their "www." name, as real ones do.
    if (page("www." + key, now))
        return redirect(301, "https://www." + request.host + request.target);
    return std::nullopt;
}

std::optional<Response> PageRequestHandler::page(const std::string& key,
                                                 std::chrono::sys_seconds now) const {
    if (const auto source = homes_.find(key); source != homes_.end())
        return home(*source->second, now);
    const auto item = stories_.find(key);
    if (item == stories_.end() || item->second->appears > now) return std::nullopt;
    return storyPage(*item->second, feedLink(*item->second->source));
}

Response PageRequestHandler::home(const WorldSource& source, std::chrono::sys_seconds now) const {
    std::string list = "<ul>\n";
    for (const auto& entry : world_.edition(source, now).entries) {
        const auto& text = entry.title.empty() ? entry.item->text : entry.title;
        list += fmt::format("<li><a href=\"{}\">{}</a></li>\n", escaped(entry.item->link),
                            escaped(text));
    }
    return htmlPage(200, source.title,
                    fmt::format("<p>{}</p>\n{}</ul>", escaped(source.description), list),
                    feedLink(source));
}

}  // namespace pressroom
