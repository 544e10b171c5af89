#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Database.h"
#include "Tarnwick_Brell/Storage/StorySelection.h"

namespace desk {

enum class Mark { read, saved };

/// What became of a list of stories to be marked.
struct Marked {
    std::size_t changed = 0;             ///< the others had the mark already
    std::vector<std::string> unknown{};  ///< ids that no story has

    bool operator==(const Marked&) const = default;
};

/// Which stories the user has read and saved. Every call that changes something is a
/// transaction of its own and stamps the marks that it changes (see DeskState::nextStamp).
class MarkTable {
public:
    explicit MarkTable(Database& database) : database_(database) {}

    /// Stories that have the mark keep the time at which they got it.
    Marked markRead(std::span<const std::string> ids, newsroom::Instant at);
    Marked markUnread(std::span<const std::string> ids);
    Marked save(std::span<const std::string> ids, newsroom::Instant at);
    Marked unsave(std::span<const std::string> ids);

    /// The same for stories known by number, all of which exist: gives them the mark, or takes
    /// it away when there is no moment. Fast for very many.
    /// Returns the stamp of the change.
    std::int64_t set(Mark mark, std::vector<std::int64_t> numbers,
                     std::optional<newsroom::Instant> at);

    /// Marks what is selected and unread as read, and says how many stories that were.
    std::size_t markAllRead(const StorySelection& selection, newsroom::Instant at);

    /// Makes the stories that the last markAllRead changed unread again, but not those that
    /// were marked by hand since; says how many. A batch can be taken back once; one that
    /// changed nothing leaves the batch before it to be taken back.
    std::size_t undoLastReadBatch();

    struct Counts {
        std::size_t read = 0;
        std::size_t saved = 0;
    };
    Counts counts();

private:
    Marked change(std::span<const std::string> ids, Mark mark, std::optional<newsroom::Instant> at);
    class Writer;
    bool isReadTime(newsroom::Instant at);

    Database& database_;
};

}  // namespace desk
