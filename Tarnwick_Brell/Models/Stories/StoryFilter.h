#pragma once

#include <set>
#include <string>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Desk/LiveQuery.h"

namespace app {

/// Which stories a list shows: those of its place, narrowed by what the reader has chosen.
struct StoryFilter {
    enum class Marks { any, unread, saved };

    kit::StoryQuery query{};  ///< of the place: a beat's, a source's, a panel's
    Marks marks = Marks::any;
    bool isAppleOnly = false;
    std::set<std::string, std::less<>> leftOut{};  ///< sources whose stories are not in the list

    // The reader's choice; an empty set asks for nothing.
    std::set<kit::StoryKind> kinds{};
    std::set<kit::Sourcing> sourcings{};
    std::set<std::string, std::less<>> sourceIDs{};
    bool showsSetAside = false;  ///< whatever the query says

    /// Anything that the reader has chosen.
    bool isNarrowed() const { return !kinds.empty() || !sourcings.empty() || !sourceIDs.empty(); }

    LiveQuery::Test test() const;

    bool operator==(const StoryFilter&) const = default;
};

}  // namespace app
