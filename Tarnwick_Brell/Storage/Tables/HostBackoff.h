#pragma once

#include <chrono>
#include <map>
#include <string>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Hosts that asked to be left alone for a while, and until when.
class HostBackoff {
public:
    explicit HostBackoff(Database& database) : database_(database) {}

    /// No host is left alone for longer, whatever it asks for.
    static constexpr std::chrono::hours kLongest{1};

    /// Those that still hold at `now`. None ends later than in an hour: one that does was
    /// written while the clock was wrong.
    std::map<std::string, kit::Instant, std::less<>> load(kit::Instant now);
    void set(std::string_view host, kit::Instant until);
    /// Forgets what is over and shortens what would last for more than an hour.
    void finishPass(kit::Instant now);

    /// What a user who has to wait is told.
    static std::string sentence(kit::Instant until, kit::Instant now);

private:
    Database& database_;
};

}  // namespace app
