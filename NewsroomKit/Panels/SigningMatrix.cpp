#include "NewsroomKit/Panels/SigningMatrix.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <set>
#include <utility>

#include "NewsroomKit/Panels/RowFilter.h"
#include "NewsroomKit/Trackers/Signing/VersionOrder.h"

namespace kit {

namespace {

using BuildKey = std::pair<std::string, std::string>;
using Column = SigningMatrix::Column;
using Cell = SigningMatrix::Cell;
using Device = SigningMatrix::Device;

constexpr std::chrono::days kStoppedLately{7};
constexpr std::chrono::days kLateSigning{30};

struct Family {
    std::string_view prefix;
    DeviceFamily family;
    std::string_view group;
};

/// The groups in their order. "iPad" must not be taken for "iPod" or the reverse, so prefixes are
/// whole names of families.
constexpr std::array kFamilyTable{
    Family{"iPhone", DeviceFamily::mobile, "iPhone"},
    Family{"iPad", DeviceFamily::mobile, "iPad"},
    Family{"iPod", DeviceFamily::mobile, "iPod touch"},
    Family{"MacBook", DeviceFamily::mac, "Mac"},
    Family{"Mac", DeviceFamily::mac, "Mac"},
    Family{"iMac", DeviceFamily::mac, "Mac"},
    Family{"VirtualMac", DeviceFamily::mac, "Mac"},
    Family{"AppleTV", DeviceFamily::tv, "Apple TV and HomePod"},
    Family{"AudioAccessory", DeviceFamily::tv, "Apple TV and HomePod"},
    Family{"Watch", DeviceFamily::watch, "Apple Watch"},
    Family{"RealityDevice", DeviceFamily::vision, "Apple Vision"},
};

const Family* familyRow(std::string_view device) {
    const auto row = std::ranges::find_if(
        kFamilyTable, [&](const Family& each) { return device.starts_with(each.prefix); });
    return row == kFamilyTable.end() ? nullptr : &*row;
}

std::string_view groupName(std::string_view device) {
    const auto* row = familyRow(device);
    return row ? row->group : "Others";
}

/// The last change of each build of a device.
std::map<BuildKey, const SigningChange*> lastChanges(const std::string& device,
                                                     const std::vector<SigningChange>& changes) {
    std::map<BuildKey, const SigningChange*> last;
    for (const auto& change : changes) {
        if (change.device == device) last.emplace(BuildKey(change.version, change.build), &change);
    }
    return last;
}

Cell cellOf(const SignedBuild& build, const SigningChange* change, Instant now) {
    Cell cell{.mark = build.isSigned ? SigningMark::isSigned : SigningMark::notSigned,
              .released = build.released};
    // A change that says the opposite belongs to an answer that was not complete.
    if (!change || change->isSigned != build.isSigned) return cell;
    if (build.isSigned) {
        cell.signedAgain = change->seenAt;
    } else {
        cell.stopped = change->seenAt;
        if (change->seenAt >= now - kStoppedLately) cell.mark = SigningMark::stopped;
    }
    return cell;
}

struct ColumnsOfBuilds {
    std::vector<Column> columns;
    std::map<BuildKey, std::size_t> places;
};

ColumnsOfBuilds columnsOf(const std::vector<const DeviceSigning*>& devices) {
    std::map<BuildKey, Column> builds;
    for (const auto* held : devices) {
        if (!held->signing.value) continue;
        for (const auto& build : held->signing.value->builds) {
            auto& column = builds[{build.version, build.build}];
            column.version = build.version;
            column.build = build.build;
            if (build.released && (!column.released || *build.released < *column.released))
                column.released = build.released;
            column.isSigned |= build.isSigned;
        }
    }
    ColumnsOfBuilds made;
    for (auto& [key, column] : builds) made.columns.push_back(std::move(column));
    std::ranges::sort(made.columns, [](const Column& one, const Column& other) {
        const auto order = compareVersions(one.version, other.version);
        if (order != 0) return order > 0;
        if (one.released != other.released) return one.released > other.released;
        return compareVersions(one.build, other.build) > 0;
    });
    for (std::size_t i = 0; i < made.columns.size(); ++i)
        made.places[{made.columns[i].version, made.columns[i].build}] = i;
    return made;
}

Device deviceRow(const DeviceSigning& held, const ColumnsOfBuilds& builds,
                 const std::vector<SigningChange>& changes, Instant now) {
    const auto& [value, fetchedAt, error] = held.signing;
    Device device{.identifier = held.device,
                  .name = value && !value->name.empty() ? value->name : held.device,
                  .group = std::string(groupName(held.device)),
                  .cells = std::vector<Cell>(builds.columns.size()),
                  .fetchedAt = fetchedAt,
                  .error = error};
    if (!value) {
        for (auto& cell : device.cells) cell.mark = SigningMark::notKnown;
        return device;
    }
    const auto last = lastChanges(held.device, changes);
    for (const auto& build : value->builds) {
        const BuildKey key(build.version, build.build);
        const auto change = last.find(key);
        auto& cell = device.cells[builds.places.at(key)];
        // A list may have a build twice; it is signed when one of them is.
        if (cell.mark == SigningMark::isSigned) continue;
        cell = cellOf(build, change == last.end() ? nullptr : change->second, now);
    }
    return device;
}

void keepColumns(SigningMatrix& matrix, const RowFilter& words) {
    const auto isKept = [&](std::size_t place) {
        return words.matches({matrix.columns[place].version, matrix.columns[place].build});
    };
    std::size_t kept = 0;
    for (std::size_t i = 0; i < matrix.columns.size(); ++i) {
        if (!isKept(i)) continue;
        for (auto& device : matrix.devices) std::swap(device.cells[kept], device.cells[i]);
        std::swap(matrix.columns[kept], matrix.columns[i]);
        ++kept;
    }
    matrix.columns.resize(kept);
    for (auto& device : matrix.devices) device.cells.resize(kept);
}

/// Words that name devices choose rows; other words choose columns.
void filterMatrix(SigningMatrix& matrix, const RowFilter& words) {
    const auto isNamed = [&](const Device& device) {
        return words.matches({device.name, device.identifier});
    };
    if (std::ranges::any_of(matrix.devices, isNamed))
        std::erase_if(matrix.devices, [&](const Device& device) { return !isNamed(device); });
    else
        keepColumns(matrix, words);
    if (matrix.columns.empty()) matrix.devices.clear();
}

std::ptrdiff_t groupPlace(const Device& device) {
    return std::ranges::find(kFamilyTable, device.group, &Family::group) - kFamilyTable.begin();
}

}  // namespace

DeviceFamily familyOf(std::string_view device) {
    const auto* row = familyRow(device);
    return row ? row->family : DeviceFamily::other;
}

SigningMatrix signingMatrix(const std::vector<DeviceSigning>& devices,
                            const std::vector<SigningChange>& changes, const SigningFilter& filter,
                            Instant now) {
    SigningMatrix matrix{.condition = signingContent(devices).condition,
                         .changes = signingNewsRows(changes)};
    matrix.lateChanges = static_cast<std::size_t>(std::ranges::count_if(
        matrix.changes,
        [&](const SigningNews& news) { return news.seenAt >= now - kLateSigning; }));

    std::set<DeviceFamily> families;
    for (const auto& held : devices) families.insert(familyOf(held.device));
    matrix.families.assign(families.begin(), families.end());
    if (matrix.families.empty()) return matrix;
    matrix.family = filter.family && families.contains(*filter.family) ? *filter.family
                                                                       : matrix.families.front();
    std::vector<const DeviceSigning*> shown;
    for (const auto& held : devices) {
        if (familyOf(held.device) == matrix.family) shown.push_back(&held);
    }
    auto builds = columnsOf(shown);
    for (const auto* held : shown) matrix.devices.push_back(deviceRow(*held, builds, changes, now));
    std::ranges::stable_sort(matrix.devices, {}, groupPlace);
    matrix.columns = std::move(builds.columns);
    if (const RowFilter words(filter.words); !words.isEmpty()) filterMatrix(matrix, words);
    return matrix;
}

}  // namespace kit
