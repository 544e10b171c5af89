#include "PressRoom/World/WorldFile.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>
#include <tuple>

namespace kit {

using namespace pressroom;

template <>
struct JSONFields<WorldPicture> {
    static constexpr auto fields =
        std::tuple{field("place", &WorldPicture::place), field("url", &WorldPicture::url),
                   field("missing", &WorldPicture::missing)};
};

template <>
struct JSONFields<WorldRevision> {
    static constexpr auto fields = std::tuple{field("minutesAgo", &WorldRevision::minutesAgo),
                                              field("title", &WorldRevision::title)};
};

template <>
struct JSONFields<WorldFault> {
    static constexpr auto fields =
        std::tuple{field("status", &WorldFault::status), field("page", &WorldFault::page),
                   field("retryAfter", &WorldFault::retryAfter),
                   field("untilMinutesAgo", &WorldFault::untilMinutesAgo)};
};

template <>
struct JSONFields<WorldStory> {
    static constexpr auto fields =
        std::tuple{field("minutesAgo", &WorldStory::minutesAgo),
                   field("title", &WorldStory::title),
                   field("text", &WorldStory::text),
                   field("html", &WorldStory::html),
                   field("author", &WorldStory::author),
                   field("link", &WorldStory::link),
                   field("linkOf", &WorldStory::linkOf),
                   field("names", &WorldStory::names),
                   field("tracking", &WorldStory::tracking),
                   field("slug", &WorldStory::slug),
                   field("publisher", &WorldStory::publisher),
                   field("picture", &WorldStory::picture),
                   field("revisions", &WorldStory::revisions),
                   field("tags", &WorldStory::tags),
                   field("datedMinutesAgo", &WorldStory::datedMinutesAgo),
                   field("undated", &WorldStory::undated),
                   field("guidOnly", &WorldStory::guidOnly),
                   field("post", &WorldStory::post)};
};

template <>
struct JSONFields<WorldSource> {
    static constexpr auto fields = std::tuple{field("id", &WorldSource::id),
                                              field("platform", &WorldSource::platform),
                                              field("address", &WorldSource::address),
                                              field("home", &WorldSource::home),
                                              field("title", &WorldSource::title),
                                              field("description", &WorldSource::description),
                                              field("articles", &WorldSource::articles),
                                              field("author", &WorldSource::author),
                                              field("account", &WorldSource::account),
                                              field("footer", &WorldSource::footer),
                                              field("fault", &WorldSource::fault),
                                              field("stories", &WorldSource::stories)};
};

}  // namespace kit

namespace pressroom {
namespace {

using kit::RecordError;

bool hasTitles(Platform platform) {
    return platform != Platform::bluesky && platform != Platform::mastodon;
}

void checkStory(const WorldSource& source, const WorldStory& story) {
    if (!std::isfinite(story.minutesAgo))
        throw RecordError("minutesAgo", "not a number of minutes");
    if (hasTitles(source.platform) != story.title.has_value()) {
        throw RecordError(
            "title", hasTitles(source.platform) ? "the key is missing" : "posts have no title");
    }
    if (story.link && story.linkOf) throw RecordError("linkOf", "\"link\" is given too");
    if (story.link && !isWebAddress(*story.link)) throw RecordError("link", "not an https address");
    if (source.platform == Platform::googleNews && !story.publisher && !source.author) {
        throw RecordError("publisher", "neither the story nor the source names one");
    }
}

void checkSource(const WorldSource& source) {
    if (!isWebAddress(source.address)) throw RecordError("address", "not an https address");
    if (!isWebAddress(source.home)) throw RecordError("home", "not an https address");
    if (!isWebAddress(source.articles)) throw RecordError("articles", "not an https address");
    for (std::size_t i = 0; i < source.stories.size(); ++i) {
        inside("stories[" + std::to_string(i) + "]",
               [&] { checkStory(source, source.stories[i]); });
    }
}

void claim(std::map<std::string, std::filesystem::path>& owners, const std::string& value,
           const std::string& key, const std::filesystem::path& file) {
    const auto [owner, isNew] = owners.emplace(value, file);
    if (isNew) return;
    throw WorldError(
        file, key + ": \"" + value + "\" already belongs to " + owner->second.filename().string());
}

}  // namespace

WorldSource readWorldSource(const std::filesystem::path& file) {
    return readDataFile<WorldSource>(file, checkSource);
}

World readWorld(const std::filesystem::path& directory) {
    const auto folder = directory / "sources";
    if (!std::filesystem::is_directory(folder)) {
        throw WorldError(folder, "there is no such folder of sample sources");
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".json") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    if (files.empty()) throw WorldError(folder, "holds no sample source");

    World world;
    std::map<std::string, std::filesystem::path> ids, addresses;
    for (const auto& file : files) {
        auto source = readWorldSource(file);
        claim(ids, source.id, "id", file);
        claim(addresses, source.address, "address", file);
        world.push_back(std::move(source));
    }
    return world;
}

}  // namespace pressroom
