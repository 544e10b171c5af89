#include "Tarnwick_Brell/Models/Pages/UpdatesPageModel.h"

#include <algorithm>

#include <QLocale>

#include "Tarnwick_Brell/Models/Panels/ChangeText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

constexpr int kLongestOfferWord = 24;

QString offerWord(const std::string& text) { return titleText(text, kLongestOfferWord); }

QString devicesCount(const kit::UpdateOffer& offer) {
    return UpdatesPageModel::tr("For %n models", nullptr, static_cast<int>(offer.deviceCount));
}

QString expiryText(const kit::CatalogueContent::Row& row, kit::Instant now) {
    if (!row.offer.expires) return UpdatesPageModel::tr("no date");
    return row.daysLeft ? daysAwayText(*row.daysLeft) : namedDayText(*row.offer.expires, now);
}

OfferRow offerRow(const kit::CatalogueContent::Row& row, kit::Instant now) {
    const auto& offer = row.offer;
    OfferRow shown{.platform = offerWord(offer.platform),
                   .version = offerWord(offer.version),
                   .build = offerWord(offer.build),
                   .isNew = row.isNew,
                   .posted = namedDayText(offer.posted, now),
                   .expires = expiryText(row, now),
                   .expiresSoon = row.daysLeft.has_value(),
                   .devices = QLocale().toString(static_cast<qlonglong>(offer.deviceCount))};
    const auto what =
        UpdatesPageModel::tr("%1 %2, build %3").arg(shown.platform, shown.version, shown.build);
    const auto until = offer.expires ? UpdatesPageModel::tr("expires %1").arg(shown.expires)
                                     : UpdatesPageModel::tr("without a day of expiry");
    shown.spokenText = UpdatesPageModel::tr("%1, posted on %2, %3, %4")
                           .arg(what, shown.posted, until, devicesCount(offer));
    if (row.isNew) shown.spokenText = UpdatesPageModel::tr("New: %1").arg(shown.spokenText);
    return shown;
}

TrackerChangeRow changeRow(const kit::OfferChange& change) {
    const auto& offer = change.offer;
    return {.isAddition = change.isOffered,
            .title = buildText(offer.platform + " " + offer.version, offer.build),
            .detail = change.isOffered ? UpdatesPageModel::tr("Came, for %n models", nullptr,
                                                              static_cast<int>(offer.deviceCount))
                                       : UpdatesPageModel::tr("Left the catalogue")};
}

}  // namespace

UpdatesPageModel::UpdatesPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Update catalogue")) {
    connect(&trackers(), &TrackerStore::updatesChanged, this, &UpdatesPageModel::update);
    update();
}

QString UpdatesPageModel::changesMessage() const {
    return changes_.rows().empty() ? tr("Nothing has been added or removed since the first fetch.")
                                   : QString();
}

int UpdatesPageModel::platform() const {
    const auto place = platforms_.indexOf(plainText(filter_.platform));
    return static_cast<int>(std::max<qsizetype>(place, 0));
}

void UpdatesPageModel::choosePlatform(int place) {
    if (place < 0 || place >= platforms_.size()) return;
    filter_.platform = place == 0 ? std::string() : platforms_[place].toStdString();
    update();
}

void UpdatesPageModel::setWords(const QString& words) {
    filter_.words = words.toStdString();
    update();
}

void UpdatesPageModel::update() {
    const auto content =
        kit::catalogueContent(trackers().updates(), trackers().offerChanges(), filter_, now());
    std::vector<OfferRow> rows;
    for (const auto& group : content.groups) {
        for (const auto& row : group.rows) {
            rows.push_back(offerRow(row, now()));
            if (&row != &group.rows.front()) continue;
            rows.back().heading = plainText(group.name);
            rows.back().headingFact =
                tr("%n offered", nullptr, static_cast<int>(group.rows.size()));
        }
    }
    std::vector<TrackerChangeRow> changes;
    for (const auto& change : content.changes)
        addChange(changes, changeRow(change), change.seenAt, now());
    platforms_ = {
        tr("All %1").arg(QLocale().toString(static_cast<qulonglong>(content.offerCount)))};
    for (const auto& platform : content.platforms) platforms_ << plainText(platform);
    changesFact_ = changes.empty() ? QString() : lateChangesText(content.lateChanges);
    nothingShown_.clear();
    if (rows.empty())
        nothingShown_ = content.offerCount > 0 ? tr("No update matches the filter.")
                                               : tr("Apple's update catalogue is empty.");
    rows_.setRows(std::move(rows));
    changes_.setRows(std::move(changes));
    setCondition(conditionOf(content.condition, tr("Apple's update catalogue is empty.")));
}

}  // namespace app
