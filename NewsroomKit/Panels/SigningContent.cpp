#include "NewsroomKit/Panels/SigningContent.h"

#include <algorithm>
#include <iterator>

namespace kit {

namespace {

SigningContent::Device deviceOf(const DeviceSigning& held) {
    const auto& [value, fetchedAt, error] = held.signing;
    SigningContent::Device device{
        .name = held.device, .isKnown = value.has_value(), .fetchedAt = fetchedAt, .error = error};
    if (!value) return device;
    device.name = value->name;
    std::ranges::copy_if(value->builds, std::back_inserter(device.builds), &SignedBuild::isSigned);
    return device;
}

PanelCondition signingCondition(const std::vector<DeviceSigning>& devices, bool hasRows) {
    bool isKnown = hasRows;
    bool haveAllFailed = true;
    std::optional<Instant> oldest;
    std::optional<std::string> error;
    for (const auto& [device, signing] : devices) {
        haveAllFailed &= signing.error.has_value();
        if (!error) error = signing.error;
        if (!signing.value) continue;
        isKnown = true;
        if (!oldest || signing.fetchedAt < oldest) oldest = signing.fetchedAt;
    }
    if (!haveAllFailed) error.reset();
    return PanelCondition::of(isKnown, hasRows, oldest, std::move(error));
}

}  // namespace

SigningContent signingContent(const std::vector<DeviceSigning>& devices) {
    SigningContent content;
    for (const auto& device : devices) content.devices.push_back(deviceOf(device));
    // A known model has a row even when nothing is signed for it.
    const bool hasRows = std::ranges::any_of(content.devices, &SigningContent::Device::isKnown);
    content.condition = signingCondition(devices, hasRows);
    return content;
}

std::vector<SigningNews> signingNewsRows(const std::vector<SigningChange>& changes) {
    auto rows = signingNews(changes);
    // The model that is asked for first was seen first, and comes last in the changes.
    for (auto& news : rows) std::ranges::reverse(news.devices);
    return rows;
}

RecordsContent recordsContent(const std::vector<DeviceSigning>& devices,
                              const std::vector<SigningChange>& changes,
                              const std::vector<LoggedSignal>& records) {
    RecordsContent content{.hasRecords = !records.empty()};
    for (auto& news : signingNewsRows(changes)) {
        const auto seenAt = news.seenAt;
        content.rows.push_back({.seenAt = seenAt, .signing = std::move(news)});
    }
    for (const auto& logged : records)
        content.rows.push_back({.seenAt = logged.signal.seenAt, .record = logged.signal});
    std::ranges::stable_sort(content.rows, std::ranges::greater{}, &RecordsRow::seenAt);
    content.condition = signingCondition(devices, !content.rows.empty());
    return content;
}

}  // namespace kit
