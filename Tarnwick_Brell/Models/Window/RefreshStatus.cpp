#include "Tarnwick_Brell/Models/Window/RefreshStatus.h"

#include <chrono>
#include <utility>

#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

using namespace std::chrono_literals;

RefreshStatus::RefreshStatus(const Stores& stores, kit::Clock clock, QObject* parent)
    : QObject(parent), desk_(stores.news), trackers_(stores.trackers), clock_(std::move(clock)) {
    connect(&desk_, &NewsDesk::refreshChanged, this, &RefreshStatus::changed);
    connect(&desk_, &NewsDesk::loaded, this, &RefreshStatus::changed);
    connect(&desk_, &NewsDesk::passEnded, this, [this](const PassReport& report) {
        if (report.cancelled) return;
        if (!report.offline) offlineSince_.reset();
        if (report.offline && !offlineSince_) offlineSince_ = clock_();
        emit changed();
    });
    connect(&desk_, &NewsDesk::failed, this, &RefreshStatus::failed);
    for (const auto trouble : {&NewsDesk::libraryDamaged, &NewsDesk::loadFailed}) {
        connect(&desk_, trouble, this, [this](const QString& sentence) {
            libraryTrouble_ = sentence;
            emit changed();
        });
    }
    connect(&minute_, &QTimer::timeout, this, &RefreshStatus::changed);
    minute_.start(30s);
}

double RefreshStatus::progress() const {
    const auto [done, total] = desk_.progress();
    return total == 0 ? 0 : static_cast<double>(done) / static_cast<double>(total);
}

QString RefreshStatus::text() const {
    if (desk_.isRefreshing()) {
        const auto [done, total] = desk_.progress();
        return total == 0
                   ? tr("Refreshing")
                   : tr("Refreshing, %1 of %n sources", nullptr, static_cast<int>(total)).arg(done);
    }
    const auto& last = desk_.lastRefresh();
    return last ? tr("Refreshed %1").arg(momentText(*last, clock_())) : tr("Not refreshed yet");
}

QString RefreshStatus::offlineText() const {
    if (!isOffline()) return {};
    return offlineSince_ ? tr("Offline since %1").arg(momentText(*offlineSince_, clock_()))
                         : tr("Offline");
}

QString RefreshStatus::liveText() const {
    const auto until = desk_.liveUntil();
    return until ? tr("Live until %1").arg(momentText(*until, clock_())) : QString();
}

void RefreshStatus::endLive() {
    desk_.endLive();
    emit changed();
}

void RefreshStatus::refresh() {
    desk_.refreshAll();
    trackers_.refreshAll();
}

void RefreshStatus::stop() { desk_.cancelRefresh(); }

}  // namespace app
