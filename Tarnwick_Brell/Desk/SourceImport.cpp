#include "Tarnwick_Brell/Desk/SourceImport.h"

#include <cerrno>
#include <fstream>
#include <system_error>
#include <utility>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Outlines/OutlineParser.h"
#include "Tarnwick_Brell/Desk/StoryIntake.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

using kit::NewsSource;

namespace {

constexpr std::size_t kFeedsBetweenQuestions = 50;

std::string nameOf(const kit::OutlineFeed& feed) {
    if (!feed.title.empty()) return feed.title;
    const auto address = kit::WebAddress::parse(feed.feedURL);
    return address ? address->host : feed.feedURL;
}

}  // namespace

ImportPreview previewImport(kit::Outlines outlines, const SourceRegistry& registry) {
    ImportPreview preview{.title = std::move(outlines.title),
                          .refused = std::move(outlines.skipped)};
    for (auto& feed : outlines.feeds) {
        if (const auto* source = registry.findByFeed(feed.feedURL)) {
            preview.known.push_back({std::move(feed), *source});
        } else {
            feed.title = shortenedName(nameOf(feed));
            preview.fresh.push_back(std::move(feed));
        }
    }
    return preview;
}

std::variant<kit::Outlines, std::string> readOutlineFile(const std::filesystem::path& path) {
    const auto unreadable = [&](int error) {
        return path.filename().string() +
               " can't be read: " + std::generic_category().message(error) + '.';
    };
    // A folder opens like a file and fails only when it is read.
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) return unreadable(EISDIR);
    std::ifstream file(path, std::ios::binary);
    if (!file) return unreadable(errno);
    std::string bytes(kit::outlineByteLimit + 1, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (file.bad()) return unreadable(EIO);
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    auto parsed = kit::parseOutlines(bytes);
    if (!parsed) return std::string(description(parsed.error()));
    return std::move(parsed.value());
}

std::vector<NewsSource> applyImport(const ImportPreview& preview, LocalStore& store,
                                    SourceRegistry& registry, const ImportGoesOn& goesOn) {
    std::vector<NewsSource> added;
    const auto addAll = [&] {
        std::size_t done = 0;
        for (const auto& feed : preview.fresh) {
            if (goesOn && done++ % kFeedsBetweenQuestions == 0 && !goesOn(done)) return false;
            if (registry.findByFeed(feed.feedURL)) continue;
            added.push_back(registry.add(feed.title, feed.feedURL, feed.siteURL));
        }
        return true;
    };
    {
        auto transaction = store.transaction();
        // Another program may have added some of them since the preview.
        registry.reload();
        if (addAll()) {
            transaction.commit();
            return added;
        }
    }
    registry.reload();
    return {};
}

bool isInScope(ExportScope scope, const NewsSource& source, bool isOn) {
    if (source.kind == NewsSource::Kind::custom) return true;
    return isOn && scope == ExportScope::subscribed;
}

ExportedList exportedSources(const std::vector<NewsSource>& sources, Secrets secrets) {
    ExportedList list{.outlines = {.title = "Sources of Tarnwick Brell"}};
    for (const auto& source : sources) {
        kit::OutlineFeed feed{.title = source.name,
                              .feedURL = source.feedURL,
                              .siteURL = source.siteURL,
                              .folders = {std::string(label(source.category))}};
        if (secrets == Secrets::withheld) {
            feed.title = kit::maskedSecrets(feed.title);
            if (kit::carriesSecret(feed.siteURL)) feed.siteURL.clear();
            if (kit::carriesSecret(feed.feedURL)) {
                feed.feedURL.clear();
                list.withheld.push_back(feed.title);
            }
        }
        list.outlines.feeds.push_back(std::move(feed));
    }
    return list;
}

}  // namespace app
