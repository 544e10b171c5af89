#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/SourceTable.h"

namespace desk {

/// All sources of the desk: the catalogue, then the user's own, and which of them are on.
class SourceRoster {
public:
    explicit SourceRoster(SourceTable& table);

    const std::vector<newsroom::NewsSource>& sources() const { return sources_; }
    std::vector<newsroom::NewsSource> enabledSources() const;
    bool isEnabled(const newsroom::NewsSource& source) const;

    /// Null when no source has the id.
    const newsroom::NewsSource* find(std::string_view id) const;
    /// Null when no source has the feed, compared by canonical address.
    const newsroom::NewsSource* findByFeed(std::string_view feedURL) const;

    void setEnabled(std::string_view id, bool enabled);

    /// Adds a source of the user's own under `name` and returns it. Its id is made from the
    /// name and differs from all others.
    newsroom::NewsSource add(std::string_view name, std::string_view feedURL);

private:
    SourceTable& table_;
    std::vector<newsroom::NewsSource> sources_;
    std::map<std::string, bool> switches_;
};

}  // namespace desk
