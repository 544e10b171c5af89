#include "BrellSharedSync/Stamp.h"

#include <algorithm>
#include <charconv>

namespace shared {
namespace {

constexpr std::size_t kLongestMachineID = 32;
/// Up to here JSON of every make holds whole numbers.
constexpr std::int64_t kLatest = 9'007'199'254'740'991;

/// By so many milliseconds a clock that is behind is put forward.
constexpr std::int64_t kClockStep = 1'000;

std::int64_t checked(std::int64_t milliseconds) {
    if (milliseconds < 0 || milliseconds > kLatest) {
        throw kit::RecordError("", "a time is out of range");
    }
    return milliseconds;
}

std::string checkedMachine(std::string_view machine) {
    if (!isMachineID(machine)) throw kit::RecordError("", "a machine's id is expected");
    return std::string(machine);
}

}  // namespace

bool isMachineID(std::string_view text) {
    const auto fits = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); };
    return !text.empty() && text.size() <= kLongestMachineID && std::ranges::all_of(text, fits);
}

std::string Stamp::text() const { return std::to_string(milliseconds) + "-" + machine; }

Stamp Stamp::parse(std::string_view text) {
    const auto dash = text.find('-');
    if (dash == std::string_view::npos) throw kit::RecordError("", "a stamp is expected");
    Stamp stamp;
    const auto* end = text.data() + dash;
    const auto read = std::from_chars(text.data(), end, stamp.milliseconds);
    if (read.ec != std::errc{} || read.ptr != end) {
        throw kit::RecordError("", "a stamp is expected");
    }
    checked(stamp.milliseconds);
    stamp.machine = checkedMachine(text.substr(dash + 1));
    return stamp;
}

Stamp Stamp::behind(std::int64_t latest, const Author& author) {
    if (author.milliseconds > latest)
        return {std::min(kLatest, author.milliseconds), author.machine};
    // A machine that was cloned, or restored from a backup, writes under the name of another for a
    // while: where its clock is behind, the clock's last digits still tell their writes apart.
    const auto ahead = (latest - author.milliseconds) / kClockStep + 1;
    return {std::min(kLatest, author.milliseconds + ahead * kClockStep), author.machine};
}

json::object stampsJSON(const std::vector<Stamp>& sorted) {
    json::object machines;
    std::map<std::string, std::int64_t> last;
    for (const auto& stamp : sorted) {
        auto& list = machines[stamp.machine];
        if (list.is_null()) list.emplace_array();
        auto& before = last[stamp.machine];
        list.get_array().push_back(stamp.milliseconds - before);
        before = stamp.milliseconds;
    }
    return machines;
}

std::vector<Stamp> stampsFromJSON(const json::value& value) {
    if (!value.is_object()) throw kit::RecordError("", "stamps are expected");
    std::vector<Stamp> stamps;
    for (const auto& [machine, list] : value.get_object()) {
        std::int64_t at = 0;
        for (const auto step : kit::decode<std::vector<std::int64_t>>(list)) {
            at = checked(at + checked(step));
            stamps.push_back({at, checkedMachine(machine)});
        }
    }
    std::ranges::sort(stamps);
    return stamps;
}

void addStamps(std::vector<Stamp>& sorted, const std::vector<Stamp>& more) {
    sorted.insert(sorted.end(), more.begin(), more.end());
    std::ranges::sort(sorted);
    sorted.erase(std::ranges::unique(sorted).begin(), sorted.end());
}

bool contains(const std::vector<Stamp>& sorted, const Stamp& stamp) {
    return std::ranges::binary_search(sorted, stamp);
}

}  // namespace shared
