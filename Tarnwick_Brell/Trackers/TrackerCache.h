#pragma once

#include <optional>
#include <string>
#include <utility>

#include "NewsroomKit/Records/RecordError.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "NewsroomKit/Trackers/CachedValue.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

/// The last good answer of each tracked file, as the library holds it. A copy that can't be
/// parsed, because another version wrote it, counts as absent.
class TrackerCache {
public:
    explicit TrackerCache(LocalStore& store) : copies_(store.trackerCopies()) {}

    /// The value to show: the latest answer with what the answer before had and no second answer
    /// has confirmed to be gone.
    template <class T>
    kit::CachedValue<T> read(const TrackedFile<T>& file);

    /// The latest answer by itself.
    template <class T>
    std::optional<T> latest(const TrackedFile<T>& file) {
        return parsed(file, file.name);
    }

    /// The latest answer still holds. Call it within a transaction.
    template <class T>
    void confirm(const TrackedFile<T>& file, kit::Instant now) {
        copies_.setHealth(file.name, {.lastAttempt = now, .lastSuccess = now});
    }

    /// Replaces the latest answer, and clears the errors. Call it within a transaction.
    template <class T>
    void store(const TrackedFile<T>& file, const std::string& body, const T& value,
               kit::Instant now);

private:
    template <class T>
    std::optional<T> parsed(const TrackedFile<T>& file, const std::string& name);

    /// The answer before is kept while the latest lacks something that it had.
    static std::string previousName(const std::string& name) {
        return name + std::string(TrackerCopies::kBefore);
    }

    TrackerCopies& copies_;
};

template <class T>
std::optional<T> TrackerCache::parsed(const TrackedFile<T>& file, const std::string& name) {
    const auto copy = copies_.find(name);
    if (!copy) return std::nullopt;
    try {
        return file.parse(copy->body);
    } catch (const kit::RecordError&) {
        return std::nullopt;
    }
}

template <class T>
kit::CachedValue<T> TrackerCache::read(const TrackedFile<T>& file) {
    const auto health = copies_.health(file.name);
    kit::CachedValue<T> cached{.value = latest(file), .error = health.lastError};
    if (!cached.value) return cached;
    cached.fetchedAt = health.lastSuccess;
    if (!file.carryOverMissing) return cached;
    if (const auto before = parsed(file, previousName(file.name))) {
        auto complete = file.carryOverMissing(*before, *cached.value);
        if (complete) cached.value = std::move(complete);
    }
    return cached;
}

template <class T>
void TrackerCache::store(const TrackedFile<T>& file, const std::string& body, const T& value,
                         kit::Instant now) {
    const auto before = latest(file);
    if (before && file.carryOverMissing && file.carryOverMissing(*before, value)) {
        copies_.store(previousName(file.name), copies_.find(file.name).value());
    } else {
        copies_.drop(previousName(file.name));
    }
    copies_.store(file.name, {body, now});
    confirm(file, now);
}

}  // namespace app
