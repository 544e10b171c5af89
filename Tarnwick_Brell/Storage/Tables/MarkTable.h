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
#include "Tarnwick_Brell/Storage/Tables/PendingMarks.h"
#include "Tarnwick_Brell/Storage/Tables/StorySelection.h"

namespace app {

/// Whether a change of marks takes the place of the one that can be taken back.
enum class Undoable { no, yes };

/// What became of a list of stories to be marked.
struct Marked {
    std::size_t changed = 0;             ///< the others had the mark already
    std::vector<std::string> unknown{};  ///< ids that no story has

    bool operator==(const Marked&) const = default;
};

/// What became of a list of story numbers to be marked.
struct MarkedNumbers {
    std::int64_t stamp = 0;
    std::size_t changed = 0;             ///< the others had the mark already, or are absent
    std::vector<std::int64_t> absent{};  ///< numbers that no story has, rising
};

/// A change of marks that was undone.
struct UndoneChange {
    Mark mark = Mark::read;
    bool on = false;                      ///< the stories have the mark now
    std::vector<std::int64_t> numbers{};  ///< of the stories that changed, rising
    std::size_t pendingCount = 0;         ///< of stories that are gone; see PendingMarks.h
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

    /// The same for stories known by number: gives them the mark, or takes it away when there is
    /// no moment. Fast for very many.
    MarkedNumbers set(Mark mark, std::vector<std::int64_t> numbers, std::optional<kit::Instant> at,
                      Undoable undoable);

    /// A mark that comes with a story from a file.
    struct Imported {
        std::string story{};
        kit::Instant savedAt{};
        bool isRead = false;
    };
    /// Within the caller's transaction. Marks of stories that the library doesn't have wait for
    /// them; the user's last change stays the one that can be undone.
    void takeOver(std::span<const Imported> marks, kit::Instant now);

    /// Marks what is selected and unread as read, and says how many stories that were.
    std::size_t markAllRead(const StorySelection& selection, kit::Instant at);

    /// Undoes the last undoable change, except for stories whose mark has changed since. The marks
    /// of stories that have been dropped become pending. Nothing when there is no change to undo:
    /// it can be undone once, and one that changed nothing does not count.
    std::optional<UndoneChange> undoLastChange(kit::Instant now);
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
    void removeGiven(Mark mark, std::int64_t moment, UndoneChange& undone);

    Database& database_;
};

}  // namespace app
