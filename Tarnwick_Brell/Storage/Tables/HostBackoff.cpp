#include "Tarnwick_Brell/Storage/Tables/HostBackoff.h"

#include <algorithm>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

std::map<std::string, kit::Instant, std::less<>> HostBackoff::load(kit::Instant now) {
    Statement rows(database_, "SELECT host, until FROM hostPauses WHERE until > ?");
    rows.bind(0, microseconds(now));
    std::map<std::string, kit::Instant, std::less<>> pauses;
    while (rows.step()) {
        pauses.emplace(rows.text(0), std::min(instantOf(rows.number(1)), now + kLongest));
    }
    return pauses;
}

void HostBackoff::set(std::string_view host, kit::Instant until) {
    Statement put(database_, "INSERT OR REPLACE INTO hostPauses (host, until) VALUES (?, ?)");
    put.bind(0, host).bind(1, microseconds(until));
    put.run();
}

void HostBackoff::finishPass(kit::Instant now) {
    Statement drop(database_, "DELETE FROM hostPauses WHERE until <= ?");
    drop.bind(0, microseconds(now));
    drop.run();
    Statement shorten(database_, "UPDATE hostPauses SET until = ?1 WHERE until > ?1");
    shorten.bind(0, microseconds(now + kLongest));
    shorten.run();
}

std::string HostBackoff::sentence(kit::Instant until, kit::Instant now) {
    const auto minutes = std::chrono::ceil<std::chrono::minutes>(until - now).count();
    return "The server wants to be left alone for now. Try again in " + std::to_string(minutes) +
           " min.";
}

}  // namespace app
