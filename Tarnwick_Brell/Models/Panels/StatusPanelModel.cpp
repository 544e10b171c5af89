#include "Tarnwick_Brell/Models/Panels/StatusPanelModel.h"

#include <algorithm>

#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::AppleServiceStatus;
using Services = AppleServiceStatus::Services;
using Report = AppleServiceStatus::Report;

constexpr std::chrono::days kRecent{14};
// Both files are fetched in one go, and only a failure parts them.
constexpr std::chrono::minutes kApart{30};

ProblemLevel::Value levelOf(std::string_view kind) {
    const auto word = kit::lowercasedASCII(kind);
    if (word.find("outage") != word.npos) return ProblemLevel::Outage;
    if (word.find("maintenance") != word.npos) return ProblemLevel::Maintenance;
    return ProblemLevel::Issue;
}

QString labelOf(ProblemLevel::Value level) {
    switch (level) {
        case ProblemLevel::Outage: return StatusPanelModel::tr("Outage");
        case ProblemLevel::Maintenance: return StatusPanelModel::tr("Maintenance");
        case ProblemLevel::Issue: break;
    }
    return StatusPanelModel::tr("Issue");
}

struct Count {
    std::size_t up;
    std::size_t all;
};

Count countOf(const Services& services) {
    return {services.size() - AppleServiceStatus::ongoingReports(services).size(), services.size()};
}

}  // namespace

StatusPanelModel::StatusPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel) {
    connect(&trackers(), &TrackerStore::statusChanged, this, &StatusPanelModel::look);
    look();
}

void StatusPanelModel::look() {
    const auto& consumer = trackers().consumerStatus();
    auto condition = conditionOf(consumer);
    consumer_ = checked_ = allUp_ = QString();
    isConsumerUp_ = false;
    if (consumer.value) {
        const auto [up, all] = countOf(*consumer.value);
        consumer_ = tr("%1 of %2 consumer up").arg(up).arg(all);
        isConsumerUp_ = up == all;
    }
    if (consumer.fetchedAt) checked_ = tr("Checked %1").arg(momentText(*consumer.fetchedAt, now()));
    lookAtDevelopers();
    problems_.setRows(ongoing());
    recent_.setRows(over());
    recentText_ = recentCount() == 1 ? tr("1 incident in 14 days")
                                     : tr("%n incidents in 14 days", nullptr, recentCount());
    if (isConsumerUp_ && isDeveloperUp_ && isDeveloperKnown_ && condition.state == Ready)
        allUp_ = tr("All services are up");
    // The body says it at its foot.
    condition.fact.clear();
    become(std::move(condition));
}

void StatusPanelModel::lookAtDevelopers() {
    const auto& developer = trackers().developerStatus();
    isDeveloperUp_ = isDeveloperKnown_ = false;
    if (!developer.value) {
        developer_ = tr("Developer services not known");
        return;
    }
    const auto [up, all] = countOf(*developer.value);
    isDeveloperUp_ = up == all;
    const auto age = now() - developer.fetchedAt.value_or(kit::Instant());
    const auto consumerAge = now() - trackers().consumerStatus().fetchedAt.value_or(kit::Instant());
    isDeveloperKnown_ = !developer.error && age - consumerAge < kApart;
    developer_ = tr("%1 of %2 developer up").arg(up).arg(all);
    if (!isDeveloperKnown_ && developer.fetchedAt)
        developer_ = tr("%1 at %2").arg(developer_, momentText(*developer.fetchedAt, now()));
}

std::vector<ProblemRow> StatusPanelModel::ongoing() const {
    std::vector<ProblemRow> rows;
    for (const auto* reading : {&trackers().consumerStatus(), &trackers().developerStatus()}) {
        if (!reading->value) continue;
        for (const auto& report : AppleServiceStatus::ongoingReports(*reading->value))
            rows.push_back(rowOf(report));
    }
    return rows;
}

std::vector<ProblemRow> StatusPanelModel::over() const {
    Services all;
    for (const auto* reading : {&trackers().consumerStatus(), &trackers().developerStatus()}) {
        if (reading->value) all.insert(all.end(), reading->value->begin(), reading->value->end());
    }
    std::vector<ProblemRow> rows;
    for (const auto& report : AppleServiceStatus::recentReports(now() - kRecent, all)) {
        const bool isToCome = report.incident.started && *report.incident.started > now();
        if (!isToCome) rows.push_back(rowOf(report));
    }
    return rows;
}

QString StatusPanelModel::lasted(const AppleServiceStatus::Incident& incident) const {
    if (!incident.started) return {};
    // The end of what goes on is a plan.
    const auto end = incident.isOngoing() ? now() : incident.ended.value_or(*incident.started);
    return end > *incident.started ? spanText(end - *incident.started) : QString();
}

ProblemRow StatusPanelModel::rowOf(const Report& report) const {
    const auto& incident = report.incident;
    ProblemRow row{.service = titleText(report.service),
                   .level = levelOf(incident.kind),
                   .message = bodyText(incident.message),
                   .duration = lasted(incident)};
    row.levelLabel = labelOf(row.level);
    if (incident.started) row.began = momentText(*incident.started, now());
    row.spokenText =
        tr("%1: %2, %3. %4").arg(row.service, row.levelLabel, row.duration, row.message);
    return row;
}

}  // namespace app
