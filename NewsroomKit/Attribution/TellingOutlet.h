#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Stories/Story.h"

namespace kit {

inline constexpr std::string_view kAppleOutlet = "Apple";

/// The name under which an outlet is shown: that of the table of outlets, where it is known.
std::string shownOutletName(std::string_view name);

/// The key under which an outlet's name is the same however it is written.
std::string outletKey(std::string_view name);

/// The outlet whose own words the story is. One that links to another outlet's article is the
/// linker's; an account's posts are those of the outlet it belongs to; Apple's sources are Apple.
std::string tellingOutlet(const Story& story);

/// Its key.
std::string tellingOutletKey(const Story& story);

/// The outlet behind an address that a service answered with, `name` being the service's own word
/// for it.
std::string outletOfPage(std::string_view name, std::string_view url);

/// The outlet that a credit names.
std::string creditedOutlet(const SourceCredit& credit);

/// The story sends its readers to another outlet's article: it tells no news of its own.
bool isLinkPost(const Story& story);

/// The headline says that the news comes from somebody else: "reportedly", "Report: …", "per
/// Bloomberg". An outlet that names itself does not.
bool isSecondHandTitle(std::string_view title, std::string_view ownOutlet);

}  // namespace kit
