#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"

#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"

#include <algorithm>
#include <utility>

namespace app {

using std::chrono::steady_clock;

namespace {

/// Scanning takes at most a fifth of the main thread's time.
constexpr int kRest = 4;

}  // namespace

/// The stories of a scan on their way to the worker, and what is built from them.
struct PanelStoryCollector::Scan {
    struct Part {
        Build build{};
        std::size_t query = 0;
        kit::Instant earliest{};
    };

    WireScan wire;
    std::map<SubscriptionID, Part> parts{};
    kit::SharedClusters clusters{};
    kit::Instant now{};
    std::optional<kit::Instant> lastLook{};
    std::shared_ptr<const kit::CorrectionOverlay> corrections{};

    std::function<void()> build(SubscriptionID id) const {
        const auto& part = parts.at(id);
        return part.build({.news = {.stories = wire.storiesOf(part.query),
                                    .clusters = *clusters,
                                    .now = now,
                                    .corrections = corrections.get()},
                           .from = wire.from(part.earliest),
                           .lastLook = lastLook});
    }
};

PanelStoryCollector::PanelStoryCollector(NewsDesk& desk, kit::Clock clock, Pace pace)
    : desk_(desk),
      clock_(std::move(clock)),
      pace_(pace),
      queue_(std::make_shared<MainThreadQueue>()) {
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &PanelStoryCollector::beginScan);
    slices_.setInterval(0);
    connect(&slices_, &QTimer::timeout, this, &PanelStoryCollector::scanSlice);
    connect(&desk, &NewsDesk::wireChanged, this, &PanelStoryCollector::scanSoon);
    connect(&desk, &NewsDesk::marksChanged, this, &PanelStoryCollector::scanSoon);
    connect(&desk, &NewsDesk::newSinceChanged, this, &PanelStoryCollector::scanSoon);
    connect(&desk, &NewsDesk::clustersChanged, this, &PanelStoryCollector::scanSoon);
}

PanelStoryCollector::~PanelStoryCollector() { queue_->close(); }

PanelStoryCollector::SubscriptionID PanelStoryCollector::add(Subscription subscription) {
    subscriptions_.emplace(++lastID_, std::move(subscription));
    scanSoon();
    return lastID_;
}

void PanelStoryCollector::scanSoon() {
    if (scan_ || builds_ > 0) {
        isRequestedAgain_ = true;
    } else if (!pause_.isActive() && desk_.isLoaded() && desk_.clusters()) {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(kRest * spent_);
        pause_.start(std::max(pace_.debounce, rest));
    }
}

void PanelStoryCollector::beginScan() {
    if (subscriptions_.empty()) return;
    const auto start = steady_clock::now();
    scan_ = std::make_shared<Scan>(
        Scan{.wire = WireScan(pace_.mostStories, pace_.summaries, desk_.clusters()),
             .clusters = desk_.clusters(),
             .now = clock_(),
             .lastLook = desk_.newSince(),
             .corrections = desk_.corrections().overlay()});
    for (const auto& [id, subscription] : subscriptions_) {
        const auto earliest = subscription.earliest();
        scan_->parts.emplace(id, Scan::Part{.build = subscription.build,
                                            .query = scan_->wire.add(subscription.query, earliest),
                                            .earliest = earliest});
    }
    spent_ = steady_clock::now() - start;
    slices_.start();
}

void PanelStoryCollector::scanSlice() {
    const auto start = steady_clock::now();
    const bool isOver = scan_->wire.continueFor(desk_.stories(), pace_.slice);
    spent_ += steady_clock::now() - start;
    if (isOver) postBuilds();
}

/// Posts a job for each content, so that more urgent jobs of the worker get in between.
void PanelStoryCollector::postBuilds() {
    slices_.stop();
    const std::shared_ptr<const Scan> scan = std::move(scan_);
    builds_ = scan->parts.size();
    for (const auto& [id, part] : scan->parts) postBuild(scan, id);
}

void PanelStoryCollector::postBuild(std::shared_ptr<const Scan> scan, SubscriptionID id) {
    const auto send = [this, id, queue = queue_](std::function<void()> show) {
        queue->send([this, id, show = std::move(show)] { finishBuild(id, show); });
    };
    desk_.worker().post(
        [scan = std::move(scan), id, send](DeskWorker::WorkerContext&) { send(scan->build(id)); },
        [send](const std::exception&) { send({}); });
}

void PanelStoryCollector::finishBuild(SubscriptionID id, const std::function<void()>& show) {
    --builds_;
    if (show && subscriptions_.contains(id)) show();
    if (builds_ == 0 && std::exchange(isRequestedAgain_, false)) scanSoon();
}

}  // namespace app
