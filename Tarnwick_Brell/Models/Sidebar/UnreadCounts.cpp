#include "Tarnwick_Brell/Models/Sidebar/UnreadCounts.h"

#include <algorithm>
#include <chrono>
#include <limits>

#include "Tarnwick_Brell/Desk/SourceOverview.h"

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr auto kBudget = 4ms;
constexpr auto kPause = 300ms;
constexpr std::size_t kCountedAtOnce = 512;

std::size_t firstBelow(const Wire& wire, std::int64_t number) {
    std::size_t low = 0, high = wire.size();
    while (low < high) {
        const auto middle = low + (high - low) / 2;
        wire[middle].number() < number ? high = middle : low = middle + 1;
    }
    return low;
}

}  // namespace

UnreadCounts::UnreadCounts(NewsDesk& desk, NewsroomStore& newsrooms)
    : desk_(desk), newsrooms_(newsrooms) {
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    work_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, [this] {
        counting_.emplace();
        countedDownTo_ = std::numeric_limits<std::int64_t>::max();
        work_.start(0);
    });
    connect(&work_, &QTimer::timeout, this, &UnreadCounts::count);
    connect(&desk, &NewsDesk::wireChanged, this, &UnreadCounts::followWire);
    connect(&desk, &NewsDesk::marksChanged, &pause_, qOverload<>(&QTimer::start));
    connect(&newsrooms, &NewsroomStore::beatsChanged, this, &UnreadCounts::followBeats);
    connect(&desk, &NewsDesk::sourcesChanged, this, &UnreadCounts::followSources);
    followSources();
    followBeats();
}

void UnreadCounts::followSources() {
    auto leftOut = sourcesNotInAll(desk_.sourceOptions());
    if (leftOut == leftOut_) return;
    leftOut_ = std::move(leftOut);
    pause_.start();
}

int UnreadCounts::ofSource(const std::string& id) const {
    const auto entry = counted_.bySource.find(id);
    return entry == counted_.bySource.end() ? 0 : entry->second;
}

int UnreadCounts::ofBeat(const std::string& id) const {
    const auto beat =
        std::find_if(beats_.begin(), beats_.end(), [&](const auto& each) { return each.id == id; });
    return beat == beats_.end() ? 0 : beat->unread;
}

void UnreadCounts::followWire(const WireChange& change) {
    for (auto& beat : beats_) beat.stories.follow(desk_.stories(), change);
    if (!pause_.isActive()) pause_.start();
}

void UnreadCounts::followBeats() {
    std::vector<BeatList> beats;
    for (const auto& entry : newsrooms_.beats().entries()) {
        if (!entry.value) continue;
        const auto known = std::find_if(beats_.begin(), beats_.end(), [&](const auto& each) {
            return each.id == entry.id && each.query == entry.value->query;
        });
        if (known != beats_.end()) {
            beats.push_back(std::move(*known));
        } else {
            beats.push_back({entry.id, entry.value->query, LiveQuery(entry.value->query)});
        }
    }
    beats_ = std::move(beats);
    pause_.start();
}

/// A slice of the work. The wire may have changed since the last one: what has come above it in
/// the meantime is counted in the next round, which that change has asked for.
void UnreadCounts::count() {
    const auto end = std::chrono::steady_clock::now() + kBudget;
    const auto& wire = desk_.stories();
    if (counting_) {
        auto place = firstBelow(wire, countedDownTo_);
        do {
            const auto stop = std::min(place + kCountedAtOnce, wire.size());
            for (; place < stop; ++place) {
                const auto& story = wire[place];
                countedDownTo_ = story.number();
                if (isSetAside(story.kind())) continue;
                const int one = leftOut_.contains(story.sourceID()) ? 0 : 1;
                counting_->stories += one;
                if (story.isRead()) continue;
                counting_->unread += one;
                const auto entry = counting_->bySource.find(story.sourceID());
                if (entry != counting_->bySource.end()) {
                    ++entry->second;
                } else {
                    counting_->bySource.emplace(story.sourceID(), 1);
                }
            }
        } while (place < wire.size() && std::chrono::steady_clock::now() < end);
        if (place < wire.size()) {
            work_.start(0);
            return;
        }
        counted_ = *std::exchange(counting_, std::nullopt);
        work_.start(0);
        return;
    }
    if (fillBeats()) {
        countBeats();
        emit changed();
    } else {
        work_.start(0);
    }
}

bool UnreadCounts::fillBeats() {
    for (auto& beat : beats_) {
        if (beat.stories.isComplete()) continue;
        beat.stories.continueFor(desk_.stories(), kBudget);
        return false;
    }
    return true;
}

void UnreadCounts::countBeats() {
    const auto& wire = desk_.stories();
    for (auto& beat : beats_) {
        beat.unread = static_cast<int>(std::count_if(
            beat.stories.numbers().begin(), beat.stories.numbers().end(), [&](auto number) {
                const auto place = wire.placeOf(number);
                return place && !wire[*place].isRead();
            }));
    }
}

}  // namespace app
