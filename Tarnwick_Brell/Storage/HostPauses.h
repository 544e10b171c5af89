#pragma once

#include <chrono>
#include <map>
#include <string>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Database.h"

namespace desk {

/// Hosts that asked to be left alone for a while, and until when.
class HostPauses {
public:
    explicit HostPauses(Database& database) : database_(database) {}

    /// No host is left alone for longer, whatever it asks for.
    static constexpr std::chrono::hours kLongest{1};

    /// Those that still hold at `now`. None ends later than in an hour: one that does was
    /// written while the clock was wrong.
    std::map<std::string, newsroom::Instant, std::less<>> load(newsroom::Instant now);
    void set(std::string_view host, newsroom::Instant until);
    /// Forgets what is over and shortens what would last for more than an hour.
    void tidyUp(newsroom::Instant now);

    /// What a user who has to wait is told.
    static std::string sentence(newsroom::Instant until, newsroom::Instant now);

private:
    Database& database_;
};

}  // namespace desk
