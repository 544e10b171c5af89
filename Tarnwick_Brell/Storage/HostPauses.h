#pragma once

#include <map>
#include <string>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Database.h"

namespace desk {

/// Hosts that asked to be left alone for a while, and until when.
class HostPauses {
public:
    explicit HostPauses(Database& database) : database_(database) {}

    /// Those that still hold at `now`.
    std::map<std::string, newsroom::Instant, std::less<>> load(newsroom::Instant now);
    void set(std::string_view host, newsroom::Instant until);
    /// Forgets what is over.
    void dropEndedBefore(newsroom::Instant now);

    /// What a user who has to wait is told.
    static std::string sentence(newsroom::Instant until, newsroom::Instant now);

private:
    Database& database_;
};

}  // namespace desk
