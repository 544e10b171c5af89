#include "NewsroomKit/Attribution/AttributionSentence.h"

#include <fmt/format.h>

namespace kit {

namespace {

using Basis = Attribution::Basis;
using Confidence = Attribution::Confidence;

std::string leadWords(std::int64_t seconds) {
    constexpr std::int64_t minute = 60, hour = 60 * minute, day = 24 * hour;
    if (seconds < minute) return fmt::format("{} s", seconds);
    if (seconds < hour) return fmt::format("{} min", seconds / minute);
    if (seconds < day) {
        const auto minutes = seconds % hour / minute;
        const auto hours = fmt::format("{} h", seconds / hour);
        return minutes == 0 ? hours : fmt::format("{} {} min", hours, minutes);
    }
    return seconds < 2 * day ? "1 day" : fmt::format("{} days", seconds / day);
}

std::string evidenceWords(const Attribution& attribution) {
    switch (attribution.basis) {
        case Basis::correction: return " (corrected by you)";
        case Basis::credit:
            return attribution.confidence == Confidence::stated
                       ? fmt::format(" (credited by {})", attribution.creditedBy)
                       : fmt::format(" (named without a link by {})", attribution.creditedBy);
        case Basis::archive: return " (in the archive)";
        case Basis::trace: return " (in the trace)";
        case Basis::time: return "";
    }
    return "";
}

std::string whyUnclear(const Attribution& attribution) {
    return attribution.basis == Basis::credit
               ? "It is unclear who was first: two outlets are credited equally often."
               : "It is unclear who was first: the times do not say it.";
}

}  // namespace

std::string attributionSentence(const Attribution& attribution) {
    if (!attribution.first) return whyUnclear(attribution);
    auto sentence = *attribution.first + evidenceWords(attribution);
    if (attribution.lead && attribution.second)
        sentence +=
            fmt::format(", {} before {}", leadWords(*attribution.lead), *attribution.second);
    const bool isGuess = attribution.confidence == Confidence::unclear;
    if (isGuess && attribution.basis != Basis::credit) sentence += ", as far as the times say";
    return sentence;
}

}  // namespace kit
