#include "Tarnwick_Brell/Models/Sheets/AlertHistorySheetModel.h"

#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Models/Alerts/AlertOutcomeText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

AlertHistoryLine historyLine(const StoredAlert& alert, bool hasRule, kit::Instant now) {
    AlertHistoryLine line{.time = clockText(alert.matchedAt),
                          .title = titleText(alert.title, kTitleCharacters),
                          .reason = titleText(alert.ruleName),
                          .symbol = alertOutcomeSymbol(alert.outcome),
                          .outcome = alertOutcomeText(alert),
                          .hasRule = hasRule};
    QStringList words;
    for (const auto& word : alert.words) words << titleText(word);
    if (!words.empty())
        line.reason = AlertHistorySheetModel::tr("%1 · for “%2”")
                          .arg(line.reason, words.join(AlertHistorySheetModel::tr("”, “")));
    line.spokenText =
        spokenRow({line.title, line.reason, line.outcome, momentText(alert.matchedAt, now)});
    return line;
}

}  // namespace

AlertHistorySheetModel::AlertHistorySheetModel(const DeskStores& stores, const QString&)
    : stores_(stores) {
    connect(&stores.alerts, &AlertStore::logChanged, this, &AlertHistorySheetModel::update);
    connect(&stores.alerts, &AlertStore::rulesChanged, this, &AlertHistorySheetModel::update);
    stores.alerts.markLookedAt();
    update();
}

void AlertHistorySheetModel::update() {
    const auto now = stores_.clock();
    alerts_ = stores_.alerts.log().newest;
    std::vector<AlertHistoryLine> lines;
    QString lastDay;
    for (const auto& alert : alerts_) {
        const auto* rule = stores_.alerts.rules().find(alert.rule);
        lines.push_back(historyLine(alert, rule && rule->value, now));
        const auto day = dayHeadingText(alert.matchedAt, now);
        if (day != lastDay) lines.back().heading = day;
        lastDay = day;
    }
    const auto days = static_cast<int>(AlertHistory::kKept.count());
    summary_ = alerts_.empty() ? tr("Nothing was told in the last %n days.", nullptr, days)
               : alerts_.size() == AlertLog::kMostShown
                   ? tr("The last %n of them", nullptr, static_cast<int>(alerts_.size()))
                   : tr("Kept for %n days", nullptr, days);
    rows_.setRows(std::move(lines));
    emit changed();
}

void AlertHistorySheetModel::openRow(int row) {
    if (row < 0 || row >= std::ssize(alerts_)) return;
    const auto link = openableLink(alerts_[static_cast<std::size_t>(row)].link);
    if (link.isEmpty()) {
        emit noticed(tr("There is no page of it to open."));
    } else {
        emit linkWanted(link);
    }
}

void AlertHistorySheetModel::editRule(int row) {
    const auto* line = rows_.row(row);
    if (!line || !line->hasRule) return;
    emit sheetWanted(QStringLiteral("alert-rule:") +
                     QString::fromStdString(alerts_[static_cast<std::size_t>(row)].rule));
}

}  // namespace app
