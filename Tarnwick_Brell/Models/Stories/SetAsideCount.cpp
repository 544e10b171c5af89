#include "Tarnwick_Brell/Models/Stories/SetAsideCount.h"

#include <chrono>

namespace app {

namespace {

using namespace std::chrono_literals;

/// Between two frames, beside the list that is filled at the same time.
constexpr auto kCountBudget = 3ms;

LiveQuery::Test hiddenBy(const StoryFilter& filter) {
    auto all = filter;
    all.showsSetAside = true;
    return [shows = filter.test(), all = all.test()](const PackedStory& story) {
        return kit::isSetAside(story.kind()) && all(story) && !shows(story);
    };
}

bool hidesNothing(const PackedStory&) { return false; }

}  // namespace

SetAsideCount::SetAsideCount(NewsDesk& desk, QObject* parent)
    : QObject(parent), desk_(desk), hidden_(&hidesNothing) {
    counting_.setSingleShot(true);
    connect(&counting_, &QTimer::timeout, this, &SetAsideCount::continueCounting);
    connect(&desk, &NewsDesk::wireChanged, this, [this](const WireChange& change) {
        const auto before = value();
        hidden_.follow(desk_.stories(), change);
        if (!hidden_.isComplete()) counting_.start(0);
        if (value() != before) emit changed();
    });
}

void SetAsideCount::count(const StoryFilter& filter) {
    hidden_ = LiveQuery(hiddenBy(filter));
    hidden_.begin();
    counting_.start(0);
}

void SetAsideCount::clear() {
    counting_.stop();
    hidden_ = LiveQuery(&hidesNothing);
    hidden_.begin({});
    emit changed();
}

void SetAsideCount::continueCounting() {
    hidden_.continueFor(desk_.stories(), kCountBudget);
    if (!hidden_.isComplete()) {
        counting_.start(0);
    } else {
        emit changed();
    }
}

}  // namespace app
