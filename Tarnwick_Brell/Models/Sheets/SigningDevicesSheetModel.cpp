#include "Tarnwick_Brell/Models/Sheets/SigningDevicesSheetModel.h"

#include <algorithm>

#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

namespace {

constexpr int kLongestChoice = 60;

DeviceChoice choiceOf(const std::string& identifier, const std::string& name, bool isChosen) {
    return {.name = titleText(name.empty() ? identifier : name, kLongestChoice),
            .identifier = plainText(identifier),
            .isChosen = isChosen};
}

bool isListed(const std::vector<DeviceChoice>& rows, const std::string& identifier) {
    return std::ranges::find(rows, plainText(identifier), &DeviceChoice::identifier) != rows.end();
}

}  // namespace

SigningDevicesSheetModel::SigningDevicesSheetModel(const DeskStores& stores, const QString&)
    : stores_(stores), before_(stores.trackers.devices()) {
    std::vector<DeviceChoice> rows;
    for (const auto& device : before_) {
        const auto& status = stores_.trackers.signing(device).value;
        rows.push_back(choiceOf(device, status ? status->name : std::string(), true));
    }
    // Those that were followed earlier.
    for (const auto& change : stores_.trackers.signingChanges()) {
        if (!isListed(rows, change.device))
            rows.push_back(choiceOf(change.device, change.deviceName, false));
    }
    devices_.setRows(std::move(rows));
}

QString SigningDevicesSheetModel::summary() const {
    return tr("%n chosen", nullptr, static_cast<int>(chosen().size()));
}

bool SigningDevicesSheetModel::canSave() const {
    const auto devices = chosen();
    return !devices.empty() && devices != before_;
}

std::vector<std::string> SigningDevicesSheetModel::chosen() const {
    std::vector<std::string> devices;
    for (const auto& row : devices_.rows()) {
        if (row.isChosen) devices.push_back(row.identifier.toStdString());
    }
    return devices;
}

void SigningDevicesSheetModel::toggle(int row) {
    auto rows = devices_.rows();
    if (!devices_.row(row)) return;
    auto& choice = rows[static_cast<std::size_t>(row)];
    choice.isChosen = !choice.isChosen;
    devices_.setRows(std::move(rows));
    emit changed();
}

bool SigningDevicesSheetModel::add(const QString& identifiers) {
    const auto devices = kit::parseDeviceList(identifiers.toStdString());
    trouble_ = devices ? QString() : tr("An identifier looks like iPhone18,3.");
    if (devices) {
        auto rows = devices_.rows();
        for (const auto& device : *devices) {
            if (isListed(rows, device)) {
                std::ranges::find(rows, plainText(device), &DeviceChoice::identifier)->isChosen =
                    true;
            } else {
                rows.push_back(choiceOf(device, {}, true));
            }
        }
        devices_.setRows(std::move(rows));
    }
    emit changed();
    return devices.has_value();
}

void SigningDevicesSheetModel::save() {
    if (!canSave()) return;
    auto& trackers = stores_.trackers;
    const auto devices = chosen();
    trackers.setDevices(devices);
    stores_.undo.push({.text = tr("Choose devices"),
                       .undo = [&trackers, before = before_] { trackers.setDevices(before); },
                       .redo = [&trackers, devices] { trackers.setDevices(devices); }});
    emit closeWanted();
}

}  // namespace app
