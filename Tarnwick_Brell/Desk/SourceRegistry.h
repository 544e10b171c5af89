#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/Tables/SourceTable.h"

namespace app {

/// The sources, which of them are enabled, and what the user has set for them.
struct SourceListState {
    std::vector<kit::NewsSource> sources{};
    std::set<std::string, std::less<>> enabled{};
    SourceTable::Options options{};

    bool operator==(const SourceListState&) const = default;
};

/// All sources of the desk: the catalogue, then the user's own, with what the user has set for
/// them, and which of them are on.
/// Every change is written at once. When that throws, or its transaction is rolled back,
/// `reload` restores what the library has.
class SourceRegistry {
public:
    explicit SourceRegistry(SourceTable& table);

    /// Reads what other programs may have changed. Pointers to sources end here, and with every
    /// change.
    void reload();

    const std::vector<kit::NewsSource>& sources() const { return sources_; }
    std::vector<kit::NewsSource> enabledSources() const;
    SourceListState state() const;
    bool isEnabled(const kit::NewsSource& source) const;

    /// Null when no source has the id.
    const kit::NewsSource* find(std::string_view id) const;
    /// Null when no source has the feed, compared by canonical address.
    const kit::NewsSource* findByFeed(std::string_view feedURL) const;

    void setEnabled(std::string_view id, bool enabled);
    void setOptions(std::string_view id, const SourceOptions& options);

    /// Adds a source of the user's own, switched on, and returns it. Its id is made of the name (of
    /// the host when that gives nothing) and a hash of the canonical feed address, so that
    /// computers that add the same feed agree; it differs from all others, also of removed sources.
    /// A feed that was removed comes back under its old id, which its stories have.
    kit::NewsSource add(std::string_view name, std::string_view feedURL, std::string_view siteURL);

    /// Both are for the user's own sources; of any other id they change nothing. `rename` says
    /// false then. What a removed source has brought stays in the wire.
    bool rename(std::string_view id, std::string_view name);
    void remove(const std::vector<std::string>& ids, kit::Instant now);

private:
    /// Canonical feed addresses. Made when first asked for: most runs of the desk never are.
    struct Feeds {
        std::unordered_map<std::string, std::size_t> places{};   ///< in `sources_`
        std::unordered_map<std::string, std::string> removed{};  ///< ids
    };

    void index();
    const Feeds& feeds() const;
    kit::NewsSource* findOwn(std::string_view id);
    std::string freshID(std::string_view name, std::string_view host, std::string hashed) const;

    SourceTable& table_;
    std::vector<kit::NewsSource> sources_;
    std::vector<kit::NewsSource> removed_;
    std::map<std::string, bool> switches_;
    SourceTable::Options options_;
    std::unordered_map<std::string, std::size_t> places_;  ///< in `sources_`, by id
    mutable std::optional<Feeds> feeds_;
};

}  // namespace app
