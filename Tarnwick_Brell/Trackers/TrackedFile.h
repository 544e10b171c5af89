#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Status/StatusFeed.h"
#include "NewsroomKit/Trackers/TrackerAPI.h"

namespace app {

/// Whether an answer without anything in it is an answer.
enum class Emptiness {
    never,       ///< there is always something
    neverAgain,  ///< not once there has been something
    always
};

/// A tracker's file as the library keeps it.
template <class T>
struct TrackedFile {
    std::string name;   ///< of its copy and its health
    std::string title;  ///< in sentences
    T (*parse)(std::string_view body);
    Emptiness emptiness = Emptiness::always;
    bool (*saysNothing)(const T&) = nullptr;  ///< needed unless emptiness is `always`
    /// The latest answer with what must not be believed to be gone yet; nothing when that is
    /// nothing. Null for what has no such doubts.
    std::optional<T> (*mended)(const T& before, const T& latest) = nullptr;
    /// Whether an answer is one to what was asked. Only quotes have it.
    std::function<bool(const T&)> isWanted{};
    std::string mismatch{};  ///< the sentence for one that is not
    std::string absence{};   ///< what the answer 404 says, when that is known
    std::string distrust{};  ///< what helps when the server's certificate is not trusted
};

inline constexpr std::string_view kQuoteNames = "quote/";

TrackedFile<kit::AppleServiceStatus::Services> statusFile(kit::StatusFeed audience);
TrackedFile<std::vector<kit::PlatformRelease>> releasesFile();
TrackedFile<std::vector<kit::AppleCalendarEvent>> eventsFile();
TrackedFile<kit::StockQuote> quoteFile(std::string_view symbol, kit::QuoteRange range);
TrackedFile<std::vector<kit::BoardQuote>> boardFile();

}  // namespace app
