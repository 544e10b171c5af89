#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"

namespace app {

/// The stories of a long time and which of them tell the same news.
struct Subjects {
    std::vector<kit::Story> stories{};               ///< newest first, with the user's corrections
    std::vector<std::vector<std::string>> groups{};  ///< ids, of two stories or more
    std::shared_ptr<const kit::CorrectionOverlay> corrections{};
    /// The library has older stories of that time, which were left out.
    bool isCut = false;

    std::vector<const kit::Story*> pointers() const;
};

/// Of more stories only the newest are read.
inline constexpr std::size_t kMostSubjectStories = 50'000;

/// Reads the stories published since `from` on a connection of its own, which may take seconds: not
/// for the main thread. Gives what it has when it is stopped. Throws StoreError.
Subjects readSubjects(const std::filesystem::path& library, kit::Instant from,
                      const std::stop_token& stop = {});

}  // namespace app
