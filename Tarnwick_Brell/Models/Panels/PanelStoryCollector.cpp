#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"

#include <algorithm>
#include <utility>

namespace app {

using std::chrono::steady_clock;

namespace {

/// The main thread is busy with gathering for at most a fifth of the time.
constexpr int kRest = 4;

}  // namespace

/// A round's stories on their way to the worker, and what is to be made of them.
struct PanelStoryCollector::Order {
    struct Part {
        Make make{};
        std::size_t question = 0;
        kit::Instant earliest{};
    };

    WireScan round;
    std::map<Ticket, Part> parts{};
    std::shared_ptr<const std::vector<kit::StoryCluster>> clusters{};
    kit::Instant now{};
    std::optional<kit::Instant> lastLook{};

    std::function<void()> make(Ticket ticket) const {
        const auto& part = parts.at(ticket);
        return part.make(
            {.news = {.stories = round.storiesOf(part.question), .clusters = *clusters, .now = now},
             .from = round.from(part.earliest),
             .lastLook = lastLook});
    }
};

PanelStoryCollector::PanelStoryCollector(NewsDesk& desk, kit::Clock clock, Pace pace)
    : desk_(desk),
      clock_(std::move(clock)),
      pace_(pace),
      mailbox_(std::make_shared<MainThreadQueue>()) {
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &PanelStoryCollector::begin);
    slices_.setInterval(0);
    connect(&slices_, &QTimer::timeout, this, &PanelStoryCollector::gatherSlice);
    connect(&desk, &NewsDesk::wireChanged, this, &PanelStoryCollector::gatherSoon);
    connect(&desk, &NewsDesk::marksChanged, this, &PanelStoryCollector::gatherSoon);
    connect(&desk, &NewsDesk::newSinceChanged, this, &PanelStoryCollector::gatherSoon);
    connect(&desk, &NewsDesk::clustersChanged, this, [this] {
        clusters_.reset();
        gatherSoon();
    });
}

PanelStoryCollector::~PanelStoryCollector() { mailbox_->close(); }

PanelStoryCollector::Ticket PanelStoryCollector::add(Wish wish) {
    wishes_.emplace(++lastTicket_, std::move(wish));
    gatherSoon();
    return lastTicket_;
}

void PanelStoryCollector::gatherSoon() {
    if (order_ || beingMade_ > 0) {
        isAskedAgain_ = true;
    } else if (!pause_.isActive() && desk_.isLoaded()) {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(kRest * spent_);
        pause_.start(std::max(pace_.debounce, rest));
    }
}

void PanelStoryCollector::begin() {
    if (wishes_.empty()) return;
    const auto start = steady_clock::now();
    if (!clusters_) {
        clusters_ = std::make_shared<const std::vector<kit::StoryCluster>>(desk_.clusters());
    }
    order_ = std::make_shared<Order>(Order{.round = WireScan(pace_.mostStories),
                                           .clusters = clusters_,
                                           .now = clock_(),
                                           .lastLook = desk_.newSince()});
    for (const auto& [ticket, wish] : wishes_) {
        const auto earliest = wish.earliest();
        order_->parts.emplace(ticket,
                              Order::Part{.make = wish.make,
                                          .question = order_->round.ask(wish.query, earliest),
                                          .earliest = earliest});
    }
    spent_ = steady_clock::now() - start;
    slices_.start();
}

void PanelStoryCollector::gatherSlice() {
    const auto start = steady_clock::now();
    const bool isOver = order_->round.continueFor(desk_.stories(), pace_.slice);
    spent_ += steady_clock::now() - start;
    if (isOver) handOver();
}

/// A job for each content, so that the worker can turn to what is more urgent in between.
void PanelStoryCollector::handOver() {
    slices_.stop();
    const std::shared_ptr<const Order> order = std::move(order_);
    beingMade_ = order->parts.size();
    for (const auto& [ticket, part] : order->parts) post(order, ticket);
}

void PanelStoryCollector::post(std::shared_ptr<const Order> order, Ticket ticket) {
    const auto send = [this, ticket, mailbox = mailbox_](std::function<void()> takeOver) {
        mailbox->send([this, ticket, takeOver = std::move(takeOver)] { take(ticket, takeOver); });
    };
    desk_.worker().post([order = std::move(order), ticket,
                         send](DeskWorker::WorkerContext&) { send(order->make(ticket)); },
                        [send](const std::exception&) { send({}); });
}

void PanelStoryCollector::take(Ticket ticket, const std::function<void()>& takeOver) {
    --beingMade_;
    if (takeOver && wishes_.contains(ticket)) takeOver();
    if (beingMade_ == 0 && std::exchange(isAskedAgain_, false)) gatherSoon();
}

}  // namespace app
