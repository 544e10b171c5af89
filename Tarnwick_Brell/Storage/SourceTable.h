#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/SourceStatus.h"
#include "Tarnwick_Brell/Storage/Database.h"

namespace desk {

/// What the library knows about sources beyond the catalogue: the user's own, which ones are
/// switched on or off, and how their fetching went.
class SourceTable {
public:
    explicit SourceTable(Database& database) : database_(database) {}

    /// In the order in which they were added.
    std::vector<newsroom::NewsSource> customSources();
    void add(const newsroom::NewsSource& source);

    /// Only sources that the user has switched are in it.
    std::map<std::string, bool> switches();
    void setEnabled(std::string_view id, bool enabled);

    std::map<std::string, SourceStatus> statuses();
    void setStatus(std::string_view id, const SourceStatus& status);

private:
    Database& database_;
};

}  // namespace desk
