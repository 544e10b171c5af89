#pragma once

#include <algorithm>
#include <any>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "NewsroomKit/Trackers/CachedValue.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

/// A CachedValue with its type hidden, so that all trackers are handled alike.
struct AnyCachedValue {
    template <class T>
    explicit AnyCachedValue(kit::CachedValue<T> cached)
        : hasValue(cached.value.has_value()),
          fetchedAt(cached.fetchedAt),
          error(cached.error),
          value(std::move(cached)) {}

    bool hasValue;
    std::optional<kit::Instant> fetchedAt;
    std::optional<std::string> error;
    std::any value;
};

/// The shown value of each tracked file, by the file's name.
class TrackerValues {
public:
    /// An empty one when nothing has been loaded or fetched yet.
    template <class T>
    const kit::CachedValue<T>& of(const TrackedFile<T>& file) const {
        static const kit::CachedValue<T> none;
        const auto entry = values_.find(file.name);
        return entry == values_.end()
                   ? none
                   : std::any_cast<const kit::CachedValue<T>&>(entry->second.value);
    }

    std::optional<kit::Instant> fetchedAt(const std::string& name) const {
        const auto entry = values_.find(name);
        return entry == values_.end() ? std::nullopt : entry->second.fetchedAt;
    }

    std::optional<std::string> error(const std::string& name) const {
        const auto entry = values_.find(name);
        return entry == values_.end() ? std::nullopt : entry->second.error;
    }

    void set(const std::string& name, AnyCachedValue value) {
        values_.insert_or_assign(name, std::move(value));
    }

    /// Whether it has become the shown value.
    bool setIfNewer(const std::string& name, AnyCachedValue value) {
        const auto entry = values_.find(name);
        const bool isOlder = entry != values_.end() && entry->second.hasValue &&
                             value.fetchedAt <= entry->second.fetchedAt;
        if (!isOlder) set(name, std::move(value));
        return !isOlder;
    }

    /// Removes those whose names begin so, unless `isNeeded`, when they are more than `most`.
    template <class IsNeeded>
    void limit(std::string_view prefix, std::size_t most, IsNeeded isNeeded) {
        const auto hasPrefix = [&](const auto& entry) { return entry.first.starts_with(prefix); };
        if (static_cast<std::size_t>(std::ranges::count_if(values_, hasPrefix)) <= most) return;
        std::erase_if(
            values_, [&](const auto& entry) { return hasPrefix(entry) && !isNeeded(entry.first); });
    }

private:
    std::map<std::string, AnyCachedValue> values_;
};

}  // namespace app
