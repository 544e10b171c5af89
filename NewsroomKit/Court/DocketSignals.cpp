#include "NewsroomKit/Court/DocketSignals.h"

#include <algorithm>
#include <chrono>
#include <unordered_map>

#include <fmt/format.h>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Text/Pattern.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

// CourtListener's feeds have so many entries at most.
constexpr std::size_t kFullFeed = 30;
constexpr int kSilentWorkingDays = 3;

/// An entry that is older than all known ones of a full list was pushed out of it earlier.
std::optional<Instant> oldestInFullList(std::span<const DocketEntry> known) {
    if (known.size() < kFullFeed) return std::nullopt;
    std::optional<Instant> oldest;
    for (const auto& entry : known) {
        if (entry.date && (!oldest || *entry.date < *oldest)) oldest = entry.date;
    }
    return oldest;
}

std::string entryName(const DocketEntry& entry) {
    auto name = entry.caseName.value_or(entry.caseNumber.value_or("A case"));
    if (entry.number) name += fmt::format(", entry {}", *entry.number);
    return name;
}

/// "26-cv-04101" from "4:26-cv-04101-ABC"; numbers of other shapes stay whole.
std::string plainCaseNumber(std::string_view number) {
    number = number.substr(number.find(':') + 1);
    std::size_t end = 0;
    for (int part = 0; part < 3 && end != std::string_view::npos; ++part)
        end = number.find('-', end + (part > 0 ? 1 : 0));
    return lowercasedASCII(number.substr(0, end));
}

/// What another feed has of an entry.
enum class Elsewhere { absent, stub, text };

/// Whether the entries are stubs wherever they are listed.
std::unordered_map<std::string, bool> stubsByIdentity(std::span<const DocketEntry> entries) {
    std::unordered_map<std::string, bool> stubs;
    for (const auto& entry : entries) {
        if (const auto identity = entryIdentity(entry)) {
            auto& isStubThere = stubs.try_emplace(*identity, true).first->second;
            isStubThere = isStubThere && isStub(entry);
        }
    }
    return stubs;
}

std::size_t countAlike(const DocketEntry& entry, std::span<const DocketEntry> entries) {
    return static_cast<std::size_t>(std::ranges::count_if(
        entries, [&](const DocketEntry& other) { return areAlike(entry, other); }));
}

Elsewhere alikeElsewhere(const DocketEntry& entry, std::size_t before,
                         std::span<const DocketEntry> entries) {
    if (countAlike(entry, entries) <= before) return Elsewhere::absent;
    const bool hasText = std::ranges::any_of(entries, [&](const DocketEntry& other) {
        return areAlike(entry, other) && !isStub(other);
    });
    return hasText ? Elsewhere::text : Elsewhere::stub;
}

Signal docketSignal(const DocketChange& change, std::string_view readAt, Instant now) {
    const auto& entry = change.entry;
    const bool isReadable = change.what == DocketChange::What::readable;
    const bool matters = entry.weight == DocketWeight::matters;
    auto signal = signalOf(isReadable ? SignalEvent::docketReadable
                           : matters  ? SignalEvent::docketEntry
                                      : SignalEvent::docketRoutine);
    signal.id = "docket|" + entry.key + (isReadable ? "|readable" : "");
    signal.subject = entry.caseName.value_or(entry.caseNumber.value_or(""));
    const auto what = entry.kind.empty() ? std::string("new entry") : entry.kind;
    signal.title = isReadable ? fmt::format("{}: now readable: {}.", entryName(entry), what)
                              : fmt::format("{}: {}.", entryName(entry), what);
    signal.detail = entry.text;
    signal.link = entry.link;
    signal.happenedAt = entry.date;
    signal.dayOnly = entry.dayOnly;
    signal.seenAt = now;
    signal.evidence = {{"readAt", readAt}, {"after", entry.text}};
    return signal;
}

}  // namespace

std::optional<std::string> entryIdentity(const DocketEntry& entry) {
    if (!entry.court || !entry.caseNumber || !entry.number) return std::nullopt;
    return fmt::format("{}|{}|{}", lowercasedASCII(*entry.court),
                       plainCaseNumber(*entry.caseNumber), *entry.number);
}

bool areAlike(const DocketEntry& one, const DocketEntry& other) {
    constexpr std::chrono::hours apart{36};
    if (one.number || other.number || one.court != other.court) return false;
    if (!one.caseNumber || !other.caseNumber || !one.date || !other.date) return false;
    if (plainCaseNumber(*one.caseNumber) != plainCaseNumber(*other.caseNumber)) return false;
    if (*one.date - *other.date > apart || *other.date - *one.date > apart) return false;
    const auto kind = lowercasedASCII(one.kind);
    const auto otherKind = lowercasedASCII(other.kind);
    return kind.starts_with(otherKind) || otherKind.starts_with(kind);
}

std::vector<DocketChange> newBeside(std::span<const DocketChange> changes,
                                    std::span<const DocketEntry> known,
                                    std::span<const DocketEntry> elsewhere) {
    const auto numbered = stubsByIdentity(elsewhere);
    std::vector<DocketEntry> listed(known.begin(), known.end());
    std::vector<DocketChange> news;
    for (auto change : changes) {
        const auto identity = entryIdentity(change.entry);
        auto there = Elsewhere::absent;
        if (!identity) {
            // Of several alike on one day, each stands for one that the other feed has.
            there = alikeElsewhere(change.entry, countAlike(change.entry, listed), elsewhere);
            if (change.what == DocketChange::What::added) listed.push_back(change.entry);
        } else if (const auto found = numbered.find(*identity); found != numbered.end()) {
            there = found->second ? Elsewhere::stub : Elsewhere::text;
        }
        if (there == Elsewhere::text) continue;
        if (there == Elsewhere::stub) {
            if (isStub(change.entry)) continue;
            if (change.what == DocketChange::What::added)
                change.what = DocketChange::What::readable;
        }
        news.push_back(std::move(change));
    }
    return news;
}

bool isOfCourtsFeed(const DocketEntry& entry) {
    return entry.key.find(".uscourts.gov/") != std::string::npos;
}

bool isStub(const DocketEntry& entry) {
    return entry.text.empty() || isOfCourtsFeed(entry) || equalIgnoringCase(entry.text, entry.kind);
}

std::vector<DocketChange> docketChanges(std::span<const DocketEntry> known,
                                        const DocketSheet& sheet) {
    std::unordered_map<std::string_view, const DocketEntry*> byKey;
    for (const auto& entry : known) byKey.emplace(entry.key, &entry);
    const auto oldest = oldestInFullList(known);
    std::vector<DocketChange> changes;
    for (const auto& entry : sheet.entries) {
        const auto before = byKey.find(entry.key);
        if (before == byKey.end()) {
            const bool isEarlier = oldest && entry.date && *entry.date < *oldest;
            changes.push_back(
                {isEarlier ? DocketChange::What::earlier : DocketChange::What::added, entry});
        } else if (isStub(*before->second) && !isStub(entry)) {
            changes.push_back({DocketChange::What::readable, entry});
        } else if (*before->second != entry && (isStub(*before->second) || !isStub(entry))) {
            changes.push_back({DocketChange::What::corrected, entry});
        }
    }
    return changes;
}

std::vector<Signal> signalsOf(std::span<const DocketChange> changes, std::string_view readAt,
                              Instant now) {
    std::vector<Signal> signals;
    for (const auto& change : changes) {
        const bool isNews =
            change.what == DocketChange::What::added || change.what == DocketChange::What::readable;
        if (isNews) signals.push_back(docketSignal(change, readAt, now));
    }
    return signals;
}

bool namesApple(std::string_view caseName) {
    static const Pattern party(
        R"((^|\bv\. |\bin re:? |\band )apple(, inc|,? inc\.?| computer| distribution| operations)?)"
        R"((,| et al|\.| v\.|$| and ))",
        Pattern::Letters::ignoringCase);
    return party.occursIn(caseName);
}

std::optional<Instant> silentSince(const DocketSheet& courtFeed, Instant now) {
    auto last = courtFeed.built;
    if (!last) {
        for (const auto& entry : courtFeed.entries) {
            if (entry.date && (!last || *entry.date > *last)) last = entry.date;
        }
    }
    if (!last) return std::nullopt;
    using std::chrono::days;
    int workingDays = 0;
    const auto today = std::chrono::floor<days>(now);
    // More than two weeks back nothing changes the answer.
    const auto first = std::max(std::chrono::floor<days>(*last), today - days(14));
    for (auto day = first + days(1); day <= today; day += days(1)) {
        const std::chrono::weekday weekday(day);
        if (weekday != std::chrono::Saturday && weekday != std::chrono::Sunday) ++workingDays;
    }
    return workingDays > kSilentWorkingDays ? last : std::nullopt;
}

}  // namespace kit
