#include "Tarnwick_Brell/Models/Pages/SigningPageModel.h"

#include <algorithm>

#include "Tarnwick_Brell/Models/Panels/ChangeText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::SigningMark;
using kit::SigningMatrix;

constexpr int kLongestBuildName = 12;
constexpr int kLongestModelName = 60;

QString buildName(const std::string& text) { return titleText(text, kLongestBuildName); }

SigningColumn columnOf(const SigningMatrix::Column& column, kit::Instant now) {
    return {.version = buildName(column.version),
            .build = buildName(column.build),
            .released = column.released ? namedDayText(*column.released, now) : QString(),
            .isSigned = column.isSigned};
}

SigningDeviceRow deviceRow(const SigningMatrix::Device& device, kit::Instant now) {
    SigningDeviceRow row{.name = titleText(device.name, kLongestModelName)};
    if (device.identifier != device.name) row.identifier = plainText(device.identifier);
    for (const auto& cell : device.cells) row.marks << static_cast<int>(cell.mark);
    if (device.error) {
        const auto error = titleText(*device.error);
        row.trouble = device.fetchedAt ? SigningPageModel::tr("As of %1. %2")
                                             .arg(momentText(*device.fetchedAt, now), error)
                                       : error;
    }
    const auto isSigned =
        std::ranges::count(device.cells, SigningMark::isSigned, &SigningMatrix::Cell::mark);
    row.spokenText = SigningPageModel::tr("%1, %2").arg(
        row.name,
        SigningPageModel::tr("%n builds are signed", nullptr, static_cast<int>(isSigned)));
    if (!row.trouble.isEmpty()) row.spokenText += QStringLiteral(", ") + row.trouble;
    return row;
}

QString sinceText(const SigningMatrix::Cell& cell, kit::Instant now) {
    if (cell.signedAgain)
        return SigningPageModel::tr("Signed, seen since %1")
            .arg(momentText(*cell.signedAgain, now));
    return cell.released
               ? SigningPageModel::tr("Signed since %1").arg(namedDayText(*cell.released, now))
               : SigningPageModel::tr("Signed");
}

QString untilText(const SigningMatrix::Cell& cell, kit::Instant now) {
    if (!cell.stopped) return SigningPageModel::tr("Not signed");
    const auto stopped = momentText(*cell.stopped, now);
    if (!cell.released) return SigningPageModel::tr("Signed until %1").arg(stopped);
    return SigningPageModel::tr("Signed from %1 until %2")
        .arg(namedDayText(*cell.released, now), stopped);
}

TrackerChangeRow changeRow(const kit::SigningNews& news) {
    return {.isAddition = news.isSigned,
            .title = buildText(news.system, news.build),
            .detail = (news.isSigned ? SigningPageModel::tr("Now signed for %1")
                                     : SigningPageModel::tr("No longer signed for %1"))
                          .arg(devicesText(news.devices))};
}

}  // namespace

SigningPageModel::SigningPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Firmware signing")) {
    connect(&trackers(), &TrackerStore::signingChanged, this, &SigningPageModel::update);
    update();
}

QString SigningPageModel::changesMessage() const {
    return changes_.rows().empty() ? tr("No change of signing has been seen yet.") : QString();
}

QString SigningPageModel::devicesText() const {
    return tr("Devices: %n chosen", nullptr, static_cast<int>(trackers().devices().size()));
}

QString SigningPageModel::nothingShown() const {
    if (!matrix_.devices.empty()) return {};
    return filter_.words.empty() ? tr("No list of builds has come yet.")
                                 : tr("No device and no build matches the filter.");
}

void SigningPageModel::chooseFamily(int place) {
    if (place < 0 || place >= families_.size()) return;
    filter_.family = matrix_.families[static_cast<std::size_t>(place)];
    update();
}

void SigningPageModel::setWords(const QString& words) {
    filter_.words = words.toStdString();
    update();
}

QString SigningPageModel::cellText(int row, int column) const {
    const auto place = static_cast<std::size_t>(row), across = static_cast<std::size_t>(column);
    if (row < 0 || column < 0 || place >= matrix_.devices.size()) return {};
    const auto& cells = matrix_.devices[place].cells;
    if (across >= cells.size()) return {};
    switch (cells[across].mark) {
        case SigningMark::neverOffered: return tr("Never offered");
        case SigningMark::notKnown: return tr("Not known, the list of this device has not come");
        case SigningMark::isSigned: return sinceText(cells[across], now());
        case SigningMark::notSigned:
        case SigningMark::stopped: return untilText(cells[across], now());
    }
    return {};
}

QString SigningPageModel::spokenCell(int row, int column) const {
    const auto* device = rows_.row(row);
    const auto* build = columns_.row(column);
    if (!device || !build) return {};
    return tr("%1, %2 (%3): %4")
        .arg(device->name, build->version, build->build, cellText(row, column));
}

void SigningPageModel::update() {
    matrix_ =
        kit::signingMatrix(signingOf(trackers()), trackers().signingChanges(), filter_, now());
    families_.clear();
    family_ = 0;
    for (const auto family : matrix_.families) {
        if (family == matrix_.family) family_ = static_cast<int>(families_.size());
        families_ << labelText(label(family));
    }
    showMatrix();
    showChanges();
    setCondition(conditionOf(matrix_.condition));
}

void SigningPageModel::showMatrix() {
    std::vector<SigningColumn> columns;
    for (const auto& column : matrix_.columns) columns.push_back(columnOf(column, now()));
    std::vector<SigningDeviceRow> rows;
    const std::string* group = nullptr;
    for (const auto& device : matrix_.devices) {
        rows.push_back(deviceRow(device, now()));
        if (!group || *group != device.group) rows.back().heading = labelText(device.group);
        group = &device.group;
    }
    columns_.setRows(std::move(columns));
    rows_.setRows(std::move(rows));
}

void SigningPageModel::showChanges() {
    std::vector<TrackerChangeRow> changes;
    for (const auto& news : matrix_.changes)
        addChange(changes, changeRow(news), news.seenAt, now());
    changesFact_ = changes.empty() ? QString() : lateChangesText(matrix_.lateChanges);
    changes_.setRows(std::move(changes));
}

}  // namespace app
