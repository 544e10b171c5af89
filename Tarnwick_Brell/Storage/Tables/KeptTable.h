#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <boost/json.hpp>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Tables/KeptKind.h"
#include "Tarnwick_Brell/Storage/Tables/SyncRecorder.h"

namespace app {

/// A row of a list of what is kept.
struct KeptRow {
    KeptKind kind{};
    std::string id{};
    std::string title{};  ///< of a clip the headline
    std::string line{};   ///< the beginning of the quote, text, description or excerpt, in one line
    kit::Instant at{};    ///< clipped, changed, made or saved
    std::string rank{};   ///< of projects, see RecordRank.h
    std::optional<kit::Instant> removedAt{};
    std::string fault{};  ///< why the record can't be read; such a record is kept as it is

    bool operator==(const KeptRow&) const = default;
};

/// Which of what is kept is wanted; what is empty asks for nothing.
struct KeptQuery {
    std::optional<KeptKind> kind{};
    std::string project{};  ///< members of the project with this id
    std::string story{};    ///< what belongs to the story with this id
    std::string tag{};
    std::size_t most = 100'000;
    std::size_t skipped = 0;

    bool operator==(const KeptQuery&) const = default;
};

/// What the table knows of a record without reading it.
struct KeptFace {
    std::string title{};
    std::string line{};
    kit::Instant at{};
    std::string text{};  ///< what is searched beside the title
    std::vector<std::string> tags{};
    /// "project", "story" or "tag", and what is named.
    std::vector<std::pair<std::string, std::string>> links{};
};

/// Clips, notes, projects and saved stories as JSON records, with what lists and the search need
/// beside them. The table does not read the records. All changes are within the caller's
/// transaction and are recorded for the user's other computers there. Removed ones stay: with their
/// content for kRestorable, then as an id alone.
class KeptTable {
public:
    static constexpr std::chrono::days kRestorable{90};

    explicit KeptTable(Database& database) : database_(database), recorder_(database) {}

    /// Projects by their ranks, everything else the latest first.
    std::vector<KeptRow> list(const KeptQuery& query);
    /// The last removed first, as long as they can be restored.
    std::vector<KeptRow> removed(kit::Instant now);
    /// Also a removed one; nothing when there never was one, or its content is gone.
    std::optional<KeptRow> row(KeptKind kind, std::string_view id);
    /// Ids that begin with `prefix`, at most two.
    std::vector<std::string> beginningWith(KeptKind kind, std::string_view prefix);
    std::size_t count(KeptKind kind);
    std::size_t faultCount();
    std::vector<std::string> tags();

    /// The record of one that is not removed.
    std::optional<std::string> record(KeptKind kind, std::string_view id);
    /// The same of all that the query selects, in the order of the list.
    std::vector<std::string> records(const KeptQuery& query);

    /// Writes a new one or a changed one. One that was removed comes back.
    void put(KeptKind kind, std::string_view id, const boost::json::object& record,
             const KeptFace& face);
    /// Writes one that this version can't read. It is listed by its name.
    void putUnreadable(KeptKind kind, std::string_view id, std::string_view record,
                       std::string_view name, std::string_view fault);
    void setRank(std::string_view project, std::string_view rank);
    /// False when there is none, or it is removed already.
    bool remove(KeptKind kind, std::string_view id, kit::Instant now);
    /// False when none was removed, or its content is gone.
    bool restore(KeptKind kind, std::string_view id);

    /// Drops the content of those that were removed kRestorable ago, with the earlier texts of
    /// notes and the kept texts of stories.
    void dropOldContent(kit::Instant now);

private:
    std::optional<std::int64_t> numberOf(KeptKind kind, std::string_view id);
    void index(std::int64_t number, const KeptFace& face);
    void unindex(std::int64_t number);
    void write(KeptKind kind, std::string_view id, std::string_view record, const KeptFace& face,
               std::string_view fault);
    std::string lastRank();

    Database& database_;
    SyncRecorder recorder_;
};

}  // namespace app
