#include "NewsroomKit/Court/CaseSearch.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {
namespace {

constexpr std::array<std::string_view, 6> kPartiesOfApple{
    "apple",
    "apple inc",
    "apple computer",
    "apple computer inc",
    "apple distribution international",
    "apple distribution international limited"};

/// Lower case, without punctuation, single spaces.
std::string plainParty(std::string_view party) {
    std::string plain;
    for (const char c : party) {
        if (isASCIIAlphanumeric(c)) {
            plain += lowercaseASCII(c);
        } else if (c == ' ' && !plain.empty() && plain.back() != ' ') {
            plain += ' ';
        }
    }
    if (plain.ends_with(' ')) plain.pop_back();
    return plain;
}

}  // namespace

bool hasAppleAsParty(const CourtCase& found) {
    return std::ranges::any_of(found.parties, [](const std::string& party) {
        const auto plain = plainParty(party);
        return std::ranges::find(kPartiesOfApple, plain) != kPartiesOfApple.end();
    });
}

std::vector<Signal> signalsOf(std::span<const CourtCase> added, std::string_view readAt,
                              Instant now) {
    std::vector<Signal> signals;
    for (const auto& found : added) {
        auto signal = signalOf(SignalEvent::docketNewCase);
        signal.id = fmt::format("case|{}", found.docket);
        signal.subject = found.name;
        signal.title = fmt::format("A new case: {} ({}).", found.name, found.courtName);
        signal.detail = found.cause.empty() ? found.nature : found.cause;
        if (!found.link.empty()) signal.link = found.link;
        signal.happenedAt = found.filed;
        signal.dayOnly = found.filed.has_value();
        signal.seenAt = now;
        signal.evidence = {{"readAt", readAt}, {"after", found.number}};
        signals.push_back(std::move(signal));
    }
    return signals;
}

}  // namespace kit
