#include "Tarnwick_Brell/Models/Newsrooms/QueryCount.h"

#include <chrono>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr int kCountedDays = 14;

}  // namespace

QueryCount::QueryCount(const DeskStores& stores, QObject* parent)
    : QObject(parent),
      clock_(stores.clock),
      collector_(stores.news, stores.clock, {.debounce = 80ms}) {}

QueryCount::~QueryCount() = default;

void QueryCount::setQuery(const kit::StoryQuery& query) {
    if (query_ == query) return;
    query_ = query;
    collector_.remove(subscription_);
    subscription_ = collector_.add(
        {.query = query,
         .earliest = [this] { return clock_() - std::chrono::hours(24 * kCountedDays); },
         .build = [this, query](const QueryResult& result) -> std::function<void()> {
             return [this, count = static_cast<int>(result.news.stories.size()),
                     proposed = kit::proposedTerms(result.news.stories, query)] {
                 stories_ = count;
                 proposed_ = proposed;
                 emit changed();
             };
         }});
}

QString QueryCount::text() const {
    if (!stories_) return {};
    //: %1 is a number of days.
    return tr("%n stories in %1 days", nullptr, *stories_).arg(kCountedDays);
}

QStringList QueryCount::proposedWords() const {
    QStringList words;
    for (const auto& [term, stories] : proposed_) words << titleText(term);
    return words;
}

}  // namespace app
