#include "Tarnwick_Brell/Models/Panels/RecordsPanelModel.h"

#include "Tarnwick_Brell/Models/Panels/ChangeText.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

ChangeRow rowOf(const kit::SigningNews& news, kit::Instant now) {
    ChangeRow row{.title = buildText(news.system, news.build),
                  .detail = (news.isSigned ? RecordsPanelModel::tr("Now signed for %1")
                                           : RecordsPanelModel::tr("No longer signed for %1"))
                                .arg(devicesText(news.devices)),
                  .when = ageText(news.seenAt, now)};
    row.spokenText = RecordsPanelModel::tr("%1, %2, seen %3")
                         .arg(row.title, row.detail, agoText(news.seenAt, now));
    return row;
}

ChangeRow rowOf(const kit::Signal& record, kit::Instant now) {
    ChangeRow row{.title = titleText(record.title, kTitleCharacters),
                  .detail = labelText(label(record.kind)),
                  .when = ageText(record.seenAt, now)};
    row.spokenText = RecordsPanelModel::tr("%1, %2, seen %3")
                         .arg(row.title, row.detail, agoText(record.seenAt, now));
    return row;
}

}  // namespace

RecordsPanelModel::RecordsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : ChangesPanelModel(stores, panel) {
    connect(&trackers(), &TrackerStore::signingChanged, this, &RecordsPanelModel::update);
    connect(&trackers(), &TrackerStore::logChanged, this, &RecordsPanelModel::update);
    connect(&trackers(), &TrackerStore::filingsChanged, this, &RecordsPanelModel::update);
    update();
}

void RecordsPanelModel::update() {
    const auto content = kit::recordsContent(signingOf(trackers()), trackers().signingChanges(),
                                             trackers().log().records);
    std::vector<ChangeRow> rows;
    for (const auto& row : content.rows)
        rows.push_back(row.signing ? rowOf(*row.signing, now()) : rowOf(*row.record, now()));
    rows_.setRows(std::move(rows));
    auto condition = conditionOf(content.condition, noRowText(kit::PanelKind::records));
    if (condition.state == Empty && !trackers().followsFilings()) condition.hint = noContactText();
    setCondition(std::move(condition));
}

}  // namespace app
