#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Tables/StorySelection.h"

namespace app {

enum class Mark { read, saved };

/// Whether a change of marks takes the place of the one that can be taken back.
enum class Undoable { no, yes };

/// What became of a list of stories to be marked.
struct Marked {
    std::size_t changed = 0;             ///< the others had the mark already
    std::vector<std::string> unknown{};  ///< ids that no story has

    bool operator==(const Marked&) const = default;
};

/// A change of marks that was taken back.
struct UndoneChange {
    Mark mark = Mark::read;
    bool on = false;                      ///< the stories have the mark now
    std::vector<std::int64_t> numbers{};  ///< of the stories that changed, rising
    std::int64_t stamp = 0;
};

/// Which stories the user has read and saved. The library remembers the user's last change, so
/// that every program undoes the same one; each change replaces the one before. Every call that
/// changes something is a transaction of its own and stamps the marks that it changes (see
/// DeskState::nextStamp).
class MarkTable {
public:
    explicit MarkTable(Database& database) : database_(database) {}

    /// Stories that have the mark keep the time at which they got it.
    Marked markRead(std::span<const std::string> ids, kit::Instant at);
    Marked markUnread(std::span<const std::string> ids);
    Marked save(std::span<const std::string> ids, kit::Instant at);
    Marked unsave(std::span<const std::string> ids);

    /// The same for stories known by number, all of which exist: gives them the mark, or takes
    /// it away when there is no moment. Fast for very many.
    /// Returns the stamp of the change.
    std::int64_t set(Mark mark, std::vector<std::int64_t> numbers, std::optional<kit::Instant> at,
                     Undoable undoable);

    /// Marks what is selected and unread as read, and says how many stories that were.
    std::size_t markAllRead(const StorySelection& selection, kit::Instant at);

    /// Takes the last undoable change back, but not for stories whose mark has changed since.
    /// Nothing when there is none: a change can be taken back once, and one that changed
    /// nothing is none.
    std::optional<UndoneChange> undoLastChange();
    bool canUndo();

    struct Counts {
        std::size_t read = 0;
        std::size_t saved = 0;
    };
    Counts counts();

private:
    class Writer;
    Marked change(std::span<const std::string> ids, Mark mark, std::optional<kit::Instant> at);
    kit::Instant unusedMoment(Mark mark, kit::Instant at);

    Database& database_;
};

}  // namespace app
