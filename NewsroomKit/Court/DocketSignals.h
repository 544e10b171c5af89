#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Court/DocketSheet.h"
#include "NewsroomKit/Signals/Signal.h"

namespace kit {

/// What a new answer adds to the entries that are known.
struct DocketChange {
    enum class What {
        added,
        earlier,   ///< new, but older than all of a full list: it has only come into view
        readable,  ///< was a stub, and now has a text
        corrected  ///< differs in another way
    };

    What what{};
    DocketEntry entry{};

    bool operator==(const DocketChange&) const = default;
};

/// The entries of `sheet` that are not among the known ones, or differ from them, in its order.
std::vector<DocketChange> docketChanges(std::span<const DocketEntry> known,
                                        const DocketSheet& sheet);

/// What makes an entry the same one in CourtListener's feed and in the court's own: the court, the
/// number of the case without its office and its judge, the number of the entry. Nothing for
/// entries without one of them.
std::optional<std::string> entryIdentity(const DocketEntry& entry);

/// Whether entries without a number can be the same one: of one case, a day and a half apart at
/// most, one's kind the begin of the other's.
bool areAlike(const DocketEntry& one, const DocketEntry& other);

/// The changes that are news although other feeds have listed the entries in `elsewhere`: those
/// that they lack, and texts of entries that are stubs there. `known` are this feed's.
std::vector<DocketChange> newBeside(std::span<const DocketChange> changes,
                                    std::span<const DocketEntry> known,
                                    std::span<const DocketEntry> elsewhere);

/// Whether the entry says no more than its kind. Those of courts' own feeds never do: they name
/// events.
bool isStub(const DocketEntry& entry);
bool isOfCourtsFeed(const DocketEntry& entry);

/// New entries and those that became readable, each told once. `readAt` is the address of the
/// feed.
std::vector<Signal> signalsOf(std::span<const DocketChange> changes, std::string_view readAt,
                              Instant now);

/// Whether the name of a case has Apple as a party: "Oak v. Apple Inc.", but not "Oak v. Apple
/// Valley".
bool namesApple(std::string_view caseName);

/// Since when a court's own feed has had nothing new, if that is more than three working days:
/// such feeds stop without an error. CourtListener's feeds are silent as long as their cases are.
std::optional<Instant> silentSince(const DocketSheet& courtFeed, Instant now);

}  // namespace kit
