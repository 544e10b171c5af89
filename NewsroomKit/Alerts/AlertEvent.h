#pragma once

#include <array>
#include <string>
#include <variant>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// How something came to the desk. Only news is told.
enum class AlertArrival {
    news,
    first,      ///< in the first answer of a source
    bulk,       ///< with an archive that was published anew
    migration,  ///< out of the tables of an older library
    restore
};

template <>
inline constexpr std::array<EnumRow<AlertArrival>, 5> enumTable<AlertArrival>{{
    {AlertArrival::news, "news", "News"},
    {AlertArrival::first, "first", "First fetch"},
    {AlertArrival::bulk, "bulk", "Bulk"},
    {AlertArrival::migration, "migration", "Migration"},
    {AlertArrival::restore, "restore", "Restore"},
}};

/// Something that rules are held against.
struct AlertEvent {
    Instant at{};  ///< when the desk got it
    std::variant<Story, Signal> subject{};
    AlertArrival arrival = AlertArrival::news;

    /// "story|" or "signal|" with its id.
    std::string key() const;
    const std::string& title() const;
};

inline std::string alertKey(const Story& story) { return "story|" + story.id; }
inline std::string alertKey(const Signal& signal) { return "signal|" + signal.id; }

inline std::string AlertEvent::key() const {
    return std::visit([](const auto& one) { return alertKey(one); }, subject);
}

inline const std::string& AlertEvent::title() const {
    return std::visit([](const auto& one) -> const std::string& { return one.title; }, subject);
}

}  // namespace kit
