#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/RecordError.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"
#include "Tarnwick_Brell/Trackers/TrackerReading.h"

namespace app {

/// The last good answers as the library holds them. A copy that does not read (another version
/// may have written it) is none.
class KeptAnswers {
public:
    explicit KeptAnswers(LocalStore& store) : store_(store) {}

    /// What there is to show, mended from the answer before while that counts.
    template <class T>
    TrackerReading<T> read(const TrackedFile<T>& file);

    /// The copy of that name, when there is one that reads.
    template <class T>
    std::optional<T> copy(const std::string& name, T (*parse)(std::string_view));

    /// Where the answer before is kept while it has something that the latest lacks.
    static std::string nameBefore(const std::string& name) {
        return name + std::string(TrackerCopies::kBefore);
    }

private:
    LocalStore& store_;
};

template <class T>
std::optional<T> KeptAnswers::copy(const std::string& name, T (*parse)(std::string_view)) {
    const auto kept = store_.trackerCopies().find(name);
    if (!kept) return std::nullopt;
    try {
        return parse(kept->body);
    } catch (const kit::RecordError&) {
        return std::nullopt;
    }
}

template <class T>
TrackerReading<T> KeptAnswers::read(const TrackedFile<T>& file) {
    const auto health = store_.trackerCopies().health(file.name);
    TrackerReading<T> reading{.value = copy(file.name, file.parse), .error = health.lastError};
    if (!reading.value) return reading;
    reading.fetchedAt = health.lastSuccess;
    if (!file.mended) return reading;
    if (const auto before = copy(nameBefore(file.name), file.parse)) {
        if (auto whole = file.mended(*before, *reading.value)) reading.value = std::move(whole);
    }
    return reading;
}

}  // namespace app
