#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "PressRoom/Court/CourtWorld.h"

/// The documents that courts, CourtListener and wires publish, as of a moment.
namespace pressroom {

/// CourtListener's Atom feed of a docket.
std::string docketDocument(const WorldDocket& docket, std::chrono::sys_seconds anchor,
                           std::chrono::sys_seconds now);

/// The feed that a court makes of the entries of its last day.
std::string courtDocument(const WorldDockets& world, std::string_view court,
                          std::chrono::sys_seconds anchor, std::chrono::sys_seconds now);

/// CourtListener's answer to a search for cases, the newest first.
std::string searchDocument(const WorldDockets& world, std::size_t page,
                           std::chrono::sys_seconds anchor, std::chrono::sys_seconds now);

bool hasCourt(const WorldDockets& world, std::string_view court);

/// The newest twenty releases of a wire. One whose channel is unknown has no title.
std::string wireDocument(const WorldPress& world, std::string_view wire, std::string_view title,
                         std::chrono::sys_seconds anchor, std::chrono::sys_seconds now);

}  // namespace pressroom
