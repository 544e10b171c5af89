#include "Tarnwick_Brell/Models/Panels/StatusPanelModel.h"

#include <string>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::StatusContent;

ProblemRow rowOf(const StatusContent::Incident& incident, kit::Instant now) {
    ProblemRow row{.service = titleText(incident.service),
                   .level = levelOf(incident.level),
                   .levelLabel = StatusPanelModel::tr(std::string(label(incident.level)).c_str()),
                   .message = bodyText(incident.message)};
    if (incident.started) row.began = momentText(*incident.started, now);
    if (incident.lasted) row.duration = spanText(*incident.lasted);
    row.spokenText = StatusPanelModel::tr("%1: %2, %3. %4")
                         .arg(row.service, row.levelLabel, row.duration, row.message);
    return row;
}

std::vector<ProblemRow> rowsOf(const std::vector<StatusContent::Incident>& incidents,
                               kit::Instant now) {
    std::vector<ProblemRow> rows;
    for (const auto& incident : incidents) rows.push_back(rowOf(incident, now));
    return rows;
}

}  // namespace

StatusPanelModel::StatusPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel) {
    connect(&trackers(), &TrackerStore::statusChanged, this, &StatusPanelModel::update);
    update();
}

void StatusPanelModel::update() {
    const auto content =
        kit::statusContent(trackers().consumerStatus(), trackers().developerStatus(), now());
    const auto& [consumer, developer] = std::tie(content.consumer, content.developer);
    isConsumerUp_ = consumer && consumer->isUp();
    isDeveloperUp_ = developer && developer->isUp();
    isDeveloperKnown_ = developer && developer->isCurrent;
    allUp_ = content.isAllUp() ? tr("All services are up") : QString();
    consumer_ =
        consumer ? tr("%1 of %2 consumer up").arg(consumer->up).arg(consumer->all) : QString();
    developer_ = developer ? tr("%1 of %2 developer up").arg(developer->up).arg(developer->all)
                           : tr("Developer services not known");
    if (developer && !developer->isCurrent && developer->fetchedAt)
        developer_ = tr("%1 at %2").arg(developer_, momentText(*developer->fetchedAt, now()));
    const auto& fetchedAt = content.condition.fetchedAt;
    checked_ = fetchedAt ? tr("Checked %1").arg(momentText(*fetchedAt, now())) : QString();
    problems_.setRows(rowsOf(content.ongoing, now()));
    recent_.setRows(rowsOf(content.recent, now()));
    recentText_ = recentCount() == 1 ? tr("1 incident in 14 days")
                                     : tr("%n incidents in 14 days", nullptr, recentCount());
    auto condition = conditionOf(content.condition);
    // The foot of the body shows it.
    condition.fact.clear();
    setCondition(std::move(condition));
}

}  // namespace app
