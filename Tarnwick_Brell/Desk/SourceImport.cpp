#include "Tarnwick_Brell/Desk/SourceImport.h"

#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "Tarnwick_Brell/Desk/StoryIntake.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

using kit::NewsSource;

namespace {

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

std::vector<NewsSource> applyImport(const ImportPreview& preview, LocalStore& store,
                                    SourceRegistry& registry) {
    auto transaction = store.transaction();
    // Another program may have added some of them since the preview.
    registry.reload();
    std::vector<NewsSource> added;
    for (const auto& feed : preview.fresh) {
        if (registry.findByFeed(feed.feedURL)) continue;
        added.push_back(registry.add(feed.title, feed.feedURL, feed.siteURL));
    }
    transaction.commit();
    return added;
}

kit::Outlines exportedSources(const SourceRegistry& registry, ExportScope scope) {
    kit::Outlines outlines{.title = "Sources of Tarnwick Brell"};
    for (const auto& source : registry.sources()) {
        const bool isOwn = source.kind == NewsSource::Kind::custom;
        if (!isOwn && (scope == ExportScope::own || !registry.isEnabled(source))) continue;
        outlines.feeds.push_back({.title = source.name,
                                  .feedURL = source.feedURL,
                                  .siteURL = source.siteURL,
                                  .folders = {std::string(label(source.category))}});
    }
    return outlines;
}

}  // namespace app
