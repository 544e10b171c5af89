#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// A feed in a list of subscriptions (OPML).
struct OutlineFeed {
    std::string title{};                 ///< plain text; empty when the list names none
    std::string feedURL{};               ///< https
    std::string siteURL{};               ///< http or https; empty when the list names none
    std::vector<std::string> folders{};  ///< titles of its folders, outermost first

    bool operator==(const OutlineFeed&) const = default;
};

/// Why an entry of a list is refused.
enum class OutlineRefusal { notHTTPS, noWebAddress, command, listed, notAFeed, tooDeep };

template <>
inline constexpr std::array<EnumRow<OutlineRefusal>, 6> enumTable<OutlineRefusal>{{
    {OutlineRefusal::notHTTPS, "notHTTPS", "not https"},
    {OutlineRefusal::noWebAddress, "noWebAddress", "not a web address"},
    {OutlineRefusal::command, "command", "a command, not an address"},
    {OutlineRefusal::listed, "listed", "twice in the file"},
    {OutlineRefusal::notAFeed, "notAFeed", "a link, not a feed"},
    {OutlineRefusal::tooDeep, "tooDeep", "nested too deeply"},
}};

struct SkippedOutline {
    std::string text{};  ///< its title, or its address when it has none
    OutlineRefusal reason = OutlineRefusal::noWebAddress;

    bool operator==(const SkippedOutline&) const = default;
};

/// A list of subscriptions; all of it in the order of the file.
struct Outlines {
    std::string title{};
    std::vector<OutlineFeed> feeds{};  ///< each address once
    std::vector<SkippedOutline> skipped{};

    bool operator==(const Outlines&) const = default;
};

}  // namespace kit
