#include "Tarnwick_Brell/Models/Newsrooms/QueryCount.h"

#include <chrono>

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
         .build = [this](const QueryResult& result) -> std::function<void()> {
             return [this, count = static_cast<int>(result.news.stories.size())] {
                 stories_ = count;
                 emit changed();
             };
         }});
}

QString QueryCount::text() const {
    if (!stories_) return {};
    //: %1 is a number of days.
    return tr("%n stories in %1 days", nullptr, *stories_).arg(kCountedDays);
}

}  // namespace app
