#include "PressRoom/World/PublishedWorld.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <stdexcept>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "PressRoom/World/ItemID.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

constexpr std::size_t slugLimit = 64;

std::string dateParts(std::string pattern, std::chrono::sys_seconds instant) {
    const auto time = fmt::gmtime(std::chrono::system_clock::to_time_t(instant));
    const std::pair<std::string_view, std::string> parts[] = {
        {"{year}", fmt::format("{:%Y}", time)},
        {"{month}", fmt::format("{:%m}", time)},
        {"{day}", fmt::format("{:%d}", time)},
    };
    for (const auto& [name, value] : parts) {
        for (auto at = pattern.find(name); at != std::string::npos; at = pattern.find(name)) {
            pattern.replace(at, name.size(), value);
        }
    }
    return pattern;
}

std::string filled(std::string pattern, std::string_view name, std::string_view value) {
    for (auto at = pattern.find(name); at != std::string::npos; at = pattern.find(name)) {
        pattern.replace(at, name.size(), value);
    }
    return pattern;
}

std::string slug(const WorldStory& story) {
    return story.slug.value_or(slugOf(story.title.value_or(story.text)));
}

}  // namespace

std::string slugOf(std::string_view title) {
    std::string result;
    for (const char c : title) {
        const bool isUpper = c >= 'A' && c <= 'Z';
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        if (isUpper || isPlain) {
            result += isUpper ? static_cast<char>(c - 'A' + 'a') : c;
        } else if (c == ' ' || c == '-' || c == '.' || c == '/' || c == '\n') {
            if (!result.empty() && result.back() != '-') result += '-';
        }
    }
    if (result.size() > slugLimit) {
        const auto cut = result.rfind('-', slugLimit);
        result.resize(cut == std::string::npos ? slugLimit : cut);
    }
    while (result.ends_with('-')) result.pop_back();
    return result;
}

PublishedWorld::PublishedWorld(World world, std::chrono::sys_seconds anchor)
    : world_(std::move(world)), anchor_(anchor) {
    for (const auto& source : world_) {
        auto& items = items_[source.id];
        std::set<std::string> taken;
        for (const auto& story : source.stories) {
            items.push_back(publish(source, story));
            const auto& item = items.back();
            if (!taken.insert(item.page).second) {
                throw std::runtime_error(source.id + ": two stories have the page " + item.page);
            }
            pages_[source.id + ":" + slug(story)] = {item.page, item.appears};
        }
    }
    for (auto& [id, items] : items_) {
        for (auto& item : items) resolve(item);
    }
}

std::chrono::sys_seconds PublishedWorld::instant(double minutesAgo) const {
    return anchor_ - std::chrono::seconds(std::llround(minutesAgo * 60));
}

Item PublishedWorld::publish(const WorldSource& source, const WorldStory& story) const {
    Item item{.story = &story, .source = &source, .appears = instant(story.minutesAgo)};
    item.key = itemKey(source.platform, source.id + "|" + story.title.value_or(story.text));
    item.page = filled(filled(dateParts(source.articles, item.appears), "{slug}", slug(story)),
                       "{key}", item.key);
    return item;
}

std::string PublishedWorld::reference(const Item& from, std::string_view name) const {
    const auto found = pages_.find(name);
    const bool exists = found != pages_.end();
    if (exists && found->second.appears <= from.appears) return found->second.address;
    throw std::runtime_error(fmt::format("{}: the story \"{}\" refers to \"{}\", which {}",
                                         from.source->id, slug(*from.story), name,
                                         exists ? "comes later" : "does not exist"));
}

std::string PublishedWorld::resolved(const Item& from, std::string text, Place place) const {
    constexpr std::string_view opening = "{link:";
    for (auto at = text.find(opening); at != std::string::npos; at = text.find(opening)) {
        const auto end = text.find('}', at);
        if (end == std::string::npos) {
            throw std::runtime_error(from.source->id + ": \"{link:\" without \"}\"");
        }
        const auto page =
            reference(from, text.substr(at + opening.size(), end - at - opening.size()));
        text.replace(at, end + 1 - at, place == Place::markup ? escaped(page) : page);
    }
    return text;
}

/// Needs the pages of all stories, because a story may refer to one of a later file.
void PublishedWorld::resolve(Item& item) const {
    const auto& story = *item.story;
    item.link = item.page;
    if (story.link) item.link = filled(dateParts(*story.link, item.appears), "{key}", item.key);
    if (story.linkOf) item.link = reference(item, *story.linkOf);
    if (story.names) item.named = reference(item, *story.names);
    if (story.tracking)
        item.link += (item.link.find('?') == std::string::npos ? "?" : "&") + *story.tracking;

    item.text = resolved(item, story.text, Place::plainText);
    if (story.html) {
        item.html = resolved(item, *story.html, Place::markup);
    } else if (!item.text.empty()) {
        item.html = "<p>" + escaped(item.text) + "</p>";
    }
}

const std::vector<Item>& PublishedWorld::items(const WorldSource& source) const {
    return items_.find(source.id)->second;
}

Edition PublishedWorld::edition(const WorldSource& source, std::chrono::sys_seconds now) const {
    Edition edition{.source = &source, .entries = {}, .changed = anchor_ - std::chrono::days(30)};
    for (const auto& item : items(source)) {
        if (item.appears > now) continue;
        Entry entry{.item = &item,
                    .title = item.story->title.value_or(""),
                    .dated = item.appears,
                    .updated = item.appears};
        if (item.story->datedMinutesAgo) entry.dated = instant(*item.story->datedMinutesAgo);
        if (item.story->undated.value_or(false)) entry.dated.reset();
        for (const auto& revision : item.story->revisions.value_or(std::vector<WorldRevision>{})) {
            const auto since = instant(revision.minutesAgo);
            if (since > now || since < entry.updated) continue;
            entry.title = revision.title;
            entry.updated = since;
        }
        edition.changed = std::max(edition.changed, entry.updated);
        edition.entries.push_back(std::move(entry));
    }
    std::stable_sort(
        edition.entries.begin(), edition.entries.end(),
        [](const Entry& a, const Entry& b) { return a.item->appears > b.item->appears; });
    return edition;
}

}  // namespace pressroom
