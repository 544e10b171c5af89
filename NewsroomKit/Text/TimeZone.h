#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace kit {

/// What clocks show somewhere, by the tables of the Unicode library. Cheap to copy.
class TimeZone {
public:
    using Moment = std::chrono::sys_time<std::chrono::microseconds>;
    /// What a clock shows.
    using Shown = std::chrono::local_time<std::chrono::seconds>;

    /// By its IANA name, "Europe/Berlin". Throws std::invalid_argument with a sentence when there
    /// is no such zone.
    explicit TimeZone(std::string_view name);
    /// That of this computer.
    static TimeZone here();

    Shown shownAt(Moment moment) const;

    /// When clocks show that time. One that they skip is the moment at which they are put forward;
    /// one that they show twice is the first or the last.
    Moment firstOf(Shown shown) const;
    Moment lastOf(Shown shown) const;

    std::string name() const;

private:
    struct Zone;
    explicit TimeZone(std::shared_ptr<const Zone> zone) : zone_(std::move(zone)) {}

    enum class Twice { first, last };
    Moment momentOf(Shown shown, Twice which) const;

    std::shared_ptr<const Zone> zone_;
};

}  // namespace kit
