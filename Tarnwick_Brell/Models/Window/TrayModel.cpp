#include "Tarnwick_Brell/Models/Window/TrayModel.h"

#include <chrono>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "Tarnwick_Brell/Alerts/QuietSettings.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Alerts/QuietActions.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr auto kTrayPause = 300ms;
/// Longer titles make a menu as wide as the screen.
constexpr int kMenuTitle = 70;

}  // namespace

TrayModel::TrayModel(const DeskStores& stores, QObject* parent) : QObject(parent), stores_(stores) {
    soon_.setSingleShot(true);
    soon_.setInterval(kTrayPause);
    connect(&soon_, &QTimer::timeout, this, &TrayModel::look);
    const auto later = [this] {
        if (!soon_.isActive()) soon_.start();
    };
    connect(&stores_.news, &NewsDesk::wireChanged, this, later);
    connect(&stores_.trackers, &TrackerStore::statusChanged, this, later);
    look();
}

void TrayModel::setUnread(int unread) {
    if (unread == unread_) return;
    unread_ = unread;
    emit changed();
}

void TrayModel::look() {
    std::vector<Entry> entries;
    const auto& wire = stores_.news.stories();
    for (std::size_t place = 0; place < wire.size() && entries.size() < kStories; ++place) {
        const auto& story = wire[place];
        if (kit::isSetAside(story.kind())) continue;
        entries.push_back({.storyID = plainText(story.id()),
                           .title = tr("%1: %2").arg(titleText(story.sourceName(), 30),
                                                     titleText(story.title(), kMenuTitle))});
    }
    QStringList problems;
    for (const auto* reading :
         {&stores_.trackers.consumerStatus(), &stores_.trackers.developerStatus()}) {
        if (!reading->value) continue;
        for (const auto& report : kit::AppleServiceStatus::ongoingReports(*reading->value))
            problems << tr("%1: %2").arg(titleText(report.service, 40),
                                         titleText(report.incident.kind, 30));
    }
    if (entries == entries_ && problems == problems_) return;
    entries_ = std::move(entries);
    problems_ = std::move(problems);
    emit changed();
}

QString TrayModel::quietText() const {
    const auto until = quietUntil(stores_.defaults, stores_.clock());
    if (!until) return {};
    return tr("Quiet until %1").arg(momentText(*until, stores_.clock()));
}

void TrayModel::setQuiet(Quiet quiet) {
    switch (quiet) {
        case Quiet::forAnHour: quietForAnHour(stores_); break;
        case Quiet::untilMorning: quietUntilMorning(stores_); break;
        case Quiet::end: endQuiet(stores_); break;
    }
    emit changed();
}

QString TrayModel::tip() const {
    QStringList parts{tr("Tarnwick Brell")};
    if (unread_ > 0) parts << tr("%n unread", nullptr, unread_);
    if (!problems_.isEmpty())
        parts << tr("%n services with problems", nullptr, static_cast<int>(problems_.size()));
    if (const auto quiet = quietText(); !quiet.isEmpty()) parts << quiet;
    return parts.join(QStringLiteral(", "));
}

}  // namespace app
