#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

enum class Mark { read, saved };

/// Marks of stories that the library doesn't have, by the ids of the stories: those that were
/// dropped, and those that have not come yet. They count nowhere until their story arrives.
class PendingMarks {
public:
    /// How long the desk remembers something about a story that it doesn't have: by then no feed
    /// still has the story.
    static constexpr std::chrono::days kRememberedFor{90};

    explicit PendingMarks(Database& database);

    struct Marks {
        std::optional<kit::Instant> readAt{};
        std::optional<kit::Instant> savedAt{};
    };

    /// Stores the marks of the stories that are about to be dropped. `condition` selects them by
    /// `number`, with `parameter` as its only one, "?1".
    void storeMarksOf(std::string_view condition, std::int64_t parameter, kit::Instant now);

    /// Gives the story that has just arrived under the number its marks, if any, with the stamp of
    /// the transaction.
    std::optional<Marks> apply(std::string_view story, std::int64_t number, std::int64_t stamp);

    /// Adds a mark of a story that the library doesn't have. False when it is pending already.
    bool add(std::string_view story, Mark mark, kit::Instant at, kit::Instant now);

    /// Removes the read marks of that moment and returns how many they were.
    std::size_t removeRead(kit::Instant readAt);

    /// Removes read marks that have been pending for kRememberedFor. Saved stories were the user's
    /// choice and stay known.
    void clean(kit::Instant now);

private:
    Database& database_;
    Statement take_;
    Statement give_;
};

}  // namespace app
