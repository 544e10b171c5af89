#include "Tarnwick_Brell/Library/SavedTextFetcher.h"

#include <chrono>
#include <utility>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Desk/ArticleFetch.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/Settings/KeepingSetting.h"

namespace app {

namespace {

/// A story whose mark is older was not saved just now: only its other mark has changed.
constexpr std::chrono::minutes kJustSaved{1};

/// More at once are no choice of single stories.
constexpr std::size_t kMostAtOnce = 500;

std::map<std::string, std::string> sitesOf(const NewsDesk& desk) {
    std::map<std::string, std::string> sites;
    for (const auto& source : desk.sources()) sites.emplace(source.id, source.siteURL);
    return sites;
}

}  // namespace

boost::asio::awaitable<std::string> keepPageText(LocalStore& store, kit::HTTPClient& http,
                                                 StoredStory story, std::string siteURL,
                                                 kit::Instant now) {
    // Saving has kept a text that was stored.
    if (store.savedStories().text(story.story.id)) co_return std::string();
    const auto address = story.story.articleLink.value_or(story.story.link);
    auto fetched = co_await fetchArticle(http, address);
    if (!fetched.article) co_return std::move(fetched.failure);
    storeArticle(store, story.story, siteURL, *fetched.article, now);
    co_return std::string();
}

SavedTextFetcher::SavedTextFetcher(NewsDesk& desk, const Defaults& defaults, kit::Clock clock)
    : desk_(desk), defaults_(defaults), clock_(std::move(clock)) {
    // The signal comes before the mark is on its way to the library.
    connect(&desk, &NewsDesk::marksChanged, this, &SavedTextFetcher::keep, Qt::QueuedConnection);
}

void SavedTextFetcher::keep(const std::vector<std::int64_t>& numbers) {
    if (numbers.size() > kMostAtOnce || !defaults_.isOn(kKeepSavedText)) return;
    auto job = [numbers, sites = sitesOf(desk_), clock = clock_](
                   DeskWorker::WorkerContext& context) -> boost::asio::awaitable<void> {
        for (const auto number : numbers) {
            const auto story = context.store.stories().findByNumber(number);
            if (!story || !story->savedAt || clock() - *story->savedAt > kJustSaved) continue;
            // GCC 12 frees temporaries twice that are made in the operand of co_await.
            std::string site;
            if (const auto found = sites.find(story->story.sourceID); found != sites.end())
                site = found->second;
            const auto failure = co_await keepPageText(context.store, context.stack.http(), *story,
                                                       std::move(site), clock());
            if (!failure.empty()) {
                kit::log(kit::LogCategory::desk, kit::LogLevel::warning,
                         "the text of the saved story {} is not kept: {}", story->story.id,
                         failure);
            }
        }
    };
    desk_.worker().spawn(std::move(job), [](const std::exception& error) {
        kit::log(kit::LogCategory::storage, kit::LogLevel::error,
                 "texts of saved stories are not kept: {}", error.what());
    });
}

}  // namespace app
