#include "NewsroomKit/Pages/PageSignals.h"

#include <array>
#include <chrono>

#include <fmt/format.h>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::size_t longestSignalTitle = 240;
constexpr std::size_t mostSentences = 6;

std::string cutTitle(const std::string& text) {
    const auto shown = firstCharacters(text, longestSignalTitle);
    return shown.size() == text.size() ? text : std::string(shown) + "…";
}

std::string dayText(Instant instant) {
    const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(instant)};
    static constexpr std::array<std::string_view, 12> months{
        "January", "February", "March",     "April",   "May",      "June",
        "July",    "August",   "September", "October", "November", "December"};
    return fmt::format("{} {} {}", static_cast<unsigned>(day.day()),
                       months[static_cast<unsigned>(day.month()) - 1],
                       static_cast<int>(day.year()));
}

SignalEvent eventOf(const PageOutcome& outcome, const PageSummary& summary) {
    if (outcome.isFailureNews) return SignalEvent::pageUnreadable;
    if (outcome.kind == PageOutcome::Kind::returned) return SignalEvent::pageReturned;
    return summary.changes.empty() ? SignalEvent::pageEdited : SignalEvent::pageChanged;
}

void describe(Signal& signal, const PageOutcome& outcome, const PageSummary& summary) {
    std::size_t said = 0;
    for (const auto* list : {&summary.changes, &summary.smallEdits, &summary.links}) {
        for (const auto& change : *list) {
            if (said++ >= mostSentences) continue;
            signal.detail += (signal.detail.empty() ? "" : "\n") + change.sentence;
        }
    }
    if (said > mostSentences) signal.detail += fmt::format("\nand {} more", said - mostSentences);
    if (!summary.changes.empty()) {
        const auto& first = summary.changes.front();
        if (first.before) signal.evidence["before"] = outcome.before[*first.before].text;
        if (first.after) signal.evidence["after"] = outcome.after[*first.after].text;
    }
    signal.title += summarySentence(summary);
}

}  // namespace

std::optional<Signal> signalOf(const PageOutcome& outcome, const PageWatchState& state,
                               std::string_view name, std::string_view address, Instant now) {
    using Kind = PageOutcome::Kind;
    const bool isChange = outcome.kind == Kind::changed || outcome.kind == Kind::returned;
    if (!isChange && !outcome.isFailureNews) return std::nullopt;
    const auto summary = pageSummary(outcome.before, outcome.after);
    auto signal = signalOf(eventOf(outcome, summary));
    signal.subject = name;
    signal.link = address;
    signal.seenAt = now;
    signal.evidence["readAt"] = secondsSince1970(now);
    signal.evidence["address"] = address;
    if (outcome.isFailureNews) {
        const auto since = state.missedSince.value_or(now);
        signal.id = fmt::format("page|{}|unreadable|{:.0f}", address, secondsSince1970(since));
        signal.title = fmt::format("{} can't be read: {}", name, label(outcome.miss.value()));
        return signal;
    }
    signal.id =
        fmt::format("page|{}|{}|{:.0f}", address, state.key, secondsSince1970(outcome.seenAt));
    signal.title = fmt::format("{}: ", name);
    if (outcome.kind == Kind::returned)
        signal.title += fmt::format("went back to the text of {}. ",
                                    dayText(outcome.earlierSeenAt.value_or(outcome.seenAt)));
    describe(signal, outcome, summary);
    signal.title = cutTitle(signal.title);
    signal.evidence["noticed"] = secondsSince1970(outcome.seenAt);
    signal.evidence["lastUnchanged"] = secondsSince1970(outcome.unchangedAt);
    if (state.statedDay && state.statedDay != outcome.dayBefore) {
        signal.happenedAt = state.statedDay;
        signal.dayOnly = true;
    }
    return signal;
}

}  // namespace kit
