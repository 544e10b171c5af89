#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Library/Note.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// The texts that notes had before: of each note the last kMost, for kKept.
class NoteVersions {
public:
    static constexpr std::size_t kMost = 50;
    static constexpr std::chrono::days kKept{90};

    explicit NoteVersions(Database& database) : database_(database) {}

    /// Within a transaction.
    void add(const kit::NoteVersion& version, std::string_view machine);
    /// The last replaced first.
    std::vector<kit::NoteVersion> of(std::string_view note);
    /// When a text of the note was last kept; nothing when none is.
    std::optional<kit::Instant> lastOf(std::string_view note);
    void dropBefore(kit::Instant limit);

private:
    Database& database_;
};

}  // namespace app
