#pragma once

#include <optional>
#include <string>

#include "Tarnwick_Brell/Models/Sidebar/Destination.h"

namespace app {

/// A page of what the user keeps, and what is chosen on it, as its Destination names them:
/// "page:clips", "page:clips/8B3D…". A project's own page is "page:project/ID".
struct LibraryPlace {
    enum class Page { clips, notes, projects, project, removed, search };

    Page page{};
    std::string id{};  ///< of what is chosen; the words of a search; empty for none

    static std::optional<LibraryPlace> of(const Destination& place);
    Destination destination() const;
    /// The place of the row of the sidebar that leads there.
    Destination sidebarPlace() const;
};

}  // namespace app
