#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"

namespace kit {

/// That an outlet told the news, as the wire, the archive or a trace has it.
struct Telling {
    struct Credit {
        std::string outlet{};
        bool isLinked = false;
    };

    std::string outlet{};
    std::string key{};  ///< of the outlet
    Instant at{};
    bool isDayOnly = false;
    /// It says that somebody else told it, so it is never the first.
    bool isSecondHand = false;
    Attribution::Basis basis = Attribution::Basis::time;
    const Story* story = nullptr;   ///< on the wire
    std::vector<Credit> credits{};  ///< of other outlets, with the words that carry them

    /// The first moment at which it had been told for sure.
    Instant latest() const { return isDayOnly ? at + std::chrono::days(1) : at; }
};

/// Whether the story is the outlet's own: it links and credits to nobody else, nor says that
/// somebody else reports it.
bool isFirstHand(const Story& story);

/// All tellings of the evidence. Posts that only link to another outlet's article are none.
std::vector<Telling> tellingsOf(const AttributionEvidence& evidence);

}  // namespace kit
