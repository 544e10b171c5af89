#include "Tarnwick_Brell/Models/Panels/QueryPanelModel.h"

#include "NewsroomKit/Panels/PanelSpan.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

std::shared_ptr<PanelStoryCollector> collectorOf(const PanelStores& stores) {
    return stores.collector ? stores.collector
                            : std::make_shared<PanelStoryCollector>(stores.news, stores.clock);
}

}  // namespace

QueryPanelModel::Extent QueryPanelModel::Extent::of(const QueryResult& result) {
    const auto& stories = result.news.stories;
    Extent extent{.now = result.news.now, .from = result.from, .stories = stories.size()};
    // The wire goes by publication.
    if (!stories.empty()) extent.newest = stories.front().story->publishedAt;
    return extent;
}

QueryPanelModel::QueryPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                 const kit::StoryQuery& query)
    : PanelModel(stores, panel),
      query_(query),
      panelKind_(panel.kind),
      collector_(collectorOf(stores)) {
    connect(&news(), &NewsDesk::loadFailed, this, [this](const QString& sentence) {
        setCondition({.state = Failed, .message = sentence});
    });
}

QueryPanelModel::~QueryPanelModel() { collector_->remove(subscription_); }

void QueryPanelModel::tick() { collector_->scanSoon(); }

void QueryPanelModel::follow(std::function<kit::Instant()> earliest,
                             PanelStoryCollector::Build build) {
    subscription_ = collector_->add(
        {.query = query_, .earliest = std::move(earliest), .build = std::move(build)});
}

std::chrono::hours QueryPanelModel::span() const { return kit::spanOf(panelKind_).value(); }

QString QueryPanelModel::spanFact(const Extent& extent) const {
    if (extent.from > extent.now - span()) {
        return tr("Since %1").arg(momentText(extent.from, extent.now));
    }
    const auto hours = static_cast<int>(span().count());
    return hours <= 48 ? tr("Last %n hours", nullptr, hours)
                       : tr("Last %n days", nullptr, hours / 24);
}

void QueryPanelModel::setReady(int rows, const QString& fact, const Extent& extent) {
    if (rows > 0) {
        setCondition({.state = Ready, .fact = fact});
    } else if (!extent.newest) {
        setCondition({.state = Empty,
                      .fact = fact,
                      .message = noStoryText(panelKind_, query_, extent.now - extent.from)});
    } else {
        const auto count = static_cast<int>(extent.stories);
        const auto hint = count == 1 ? tr("The only story that matches is from %1.")
                                     : tr("%n stories match, the newest from %1.", nullptr, count);
        setCondition({.state = Empty,
                      .fact = fact,
                      .message = noRowText(panelKind_),
                      .hint = hint.arg(momentText(*extent.newest, extent.now))});
    }
}

}  // namespace app
