#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/ListDoubts.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"
#include "Tarnwick_Brell/Trackers/TrackerReading.h"

namespace desk {

/// What the library holds of the trackers, without the network. A copy that does not read
/// (another version may have written it) is none.
class LastGood {
public:
    using Services = newsroom::AppleServiceStatus::Services;

    explicit LastGood(LocalStore& store) : store_(store) {}

    TrackerReading<Services> status(newsroom::StatusAudience audience);
    TrackerReading<std::vector<newsroom::PlatformRelease>> releases();
    TrackerReading<std::vector<newsroom::AppleCalendarEvent>> events();
    TrackerReading<newsroom::StockQuote> quote(std::string_view symbol, newsroom::QuoteRange range);
    TrackerReading<std::vector<newsroom::BoardQuote>> board();

    template <class T>
    TrackerReading<T> read(const TrackedFile<T>& file);

    /// The copy of that name, when there is one that reads.
    template <class T>
    std::optional<T> copy(const std::string& name, T (*parse)(std::string_view));

    /// Where the answer before is kept while it has something that the latest lacks.
    static std::string nameBefore(const std::string& name) { return name + "/before"; }

private:
    LocalStore& store_;
};

template <class T>
std::optional<T> LastGood::copy(const std::string& name, T (*parse)(std::string_view)) {
    const auto kept = store_.trackerCopies().find(name);
    if (!kept) return std::nullopt;
    try {
        return parse(kept->body);
    } catch (const newsroom::RecordError&) {
        return std::nullopt;
    }
}

template <class T>
TrackerReading<T> LastGood::read(const TrackedFile<T>& file) {
    const auto health = store_.trackerCopies().health(file.name);
    TrackerReading<T> reading{.value = copy(file.name, file.parse), .error = health.lastError};
    if (!reading.value) return reading;
    reading.fetchedAt = health.lastSuccess;
    if constexpr (!std::is_same_v<T, newsroom::StockQuote>) {
        if (const auto before = copy(nameBefore(file.name), file.parse)) {
            const auto lacking = vanished(*before, *reading.value);
            reading.value = completed(std::move(*reading.value), lacking);
        }
    }
    return reading;
}

}  // namespace desk
