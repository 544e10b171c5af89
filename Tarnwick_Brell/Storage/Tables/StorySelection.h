#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/SQLite/SearchText.h"

namespace app {

/// Which stories of the library are wanted, as far as the library itself can tell. What is
/// left empty asks for nothing; everything else must hold.
struct StorySelection {
    SearchText search{};
    std::vector<std::string> sourceIDs{};  ///< of one of these
    std::optional<kit::Instant> since{};   ///< published then or later
    std::optional<kit::Instant> before{};  ///< published earlier
    bool unread = false;
    bool saved = false;
};

/// The end of a select over stories, which are named "s" in it, and their marks "m" (see
/// StoryTable::selection): the joins and conditions that leave the selected ones.
class SelectionClause {
public:
    explicit SelectionClause(const StorySelection& selection);

    const std::string& sql() const { return sql_; }

    /// The column with the story's number that has the clause's rows in order at no cost.
    std::string_view number() const { return match_.empty() ? "s.number" : "f.rowid"; }

    /// Binds the clause's parameters from `index` on. The selection and the clause must
    /// outlive the statement's steps.
    void bind(Statement& statement, int index) const;

private:
    const StorySelection& selection_;
    std::string match_{};
    std::string sql_{};
};

}  // namespace app
