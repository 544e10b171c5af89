#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/Tables/SourceStatus.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// What the library knows about sources beyond the catalogue: the user's own, which ones are
/// switched on or off, and how their fetching went.
class SourceTable {
public:
    explicit SourceTable(Database& database) : database_(database) {}

    /// In the order in which they were added.
    std::vector<kit::NewsSource> customSources();
    /// Those of the user's own that were removed. Their rows stay, so that no other program's
    /// copy brings them back and their ids never name anything else.
    std::vector<kit::NewsSource> removedSources();

    bool isRemoved(std::string_view id);

    /// Its id must be new; removed sources keep theirs.
    void add(const kit::NewsSource& source);
    /// Brings a removed source back, behind all others.
    void restore(const kit::NewsSource& source);
    /// Writes a source of the user's own again, in its place.
    void update(const kit::NewsSource& source);
    /// Forgets the source's switch, options, status and tries with it.
    void remove(std::string_view id, kit::Instant now);

    /// Only sources that the user has switched are in it.
    std::map<std::string, bool> switches();
    void setEnabled(std::string_view id, bool enabled);

    using Options = std::map<std::string, SourceOptions, std::less<>>;
    /// Only sources for which something has been set are in it.
    Options options();
    void setOptions(std::string_view id, const SourceOptions& options);

    /// Of the last days, the oldest first.
    std::vector<SourceTry> tries(std::string_view id);
    /// How many there are of each source; none are of sources that were never tried.
    std::map<std::string, std::int64_t> tryCounts(kit::Instant from);
    /// Drops those that are too old to be kept.
    void addTry(std::string_view id, const SourceTry& attempt);

    std::map<std::string, SourceStatus> statuses();
    void setStatus(std::string_view id, const SourceStatus& status);

    std::map<std::string, SourceHealth> healths();
    /// Of a source that has a status.
    void setHealth(std::string_view id, const SourceHealth& health);

private:
    Database& database_;
};

}  // namespace app
