#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Marks of stories that the library doesn't have, by the ids of the stories: those that were
/// dropped, and those that have not come yet. They count nowhere until their story arrives.
class PendingMarks {
public:
    explicit PendingMarks(Database& database);

    struct Marks {
        std::optional<kit::Instant> readAt{};
        std::optional<kit::Instant> savedAt{};
    };

    /// Keeps the marks of the stories that are about to be dropped. `condition` selects them by
    /// `number`, with `parameter` as its only one, "?1".
    void keepOf(std::string_view condition, std::int64_t parameter, kit::Instant now);

    /// Gives the story that has just arrived under the number its marks, if any, with the stamp of
    /// the transaction.
    std::optional<Marks> apply(std::string_view story, std::int64_t number, std::int64_t stamp);

    /// Takes back what was marked as read at the moment.
    void removeRead(kit::Instant readAt);

    /// Forgets read marks that have been pending for a season: by then no feed still has the story.
    /// Saved stories were the user's choice and stay known.
    void clean(kit::Instant now);

private:
    Database& database_;
    Statement take_;
    Statement give_;
};

}  // namespace app
