#pragma once

#include <set>
#include <string>

#include "NewsroomKit/Library/Citation.h"
#include "NewsroomKit/Library/CitedNames.h"

namespace kit {

/// A work with its author taken apart and its texts on one line each.
struct CitedParts {
    std::vector<CitedName> names{};
    std::string title{};
    std::string outlet{};  ///< empty when it is the author
    std::string link{};    ///< safe
    std::optional<std::chrono::year_month_day> published{};
    std::chrono::year_month_day accessed{};
};

CitedParts citedParts(const CitedWork& work, const TimeZone& zone);

/// "doe2026orchard-3fa2": by the author, the year, a word of the title and the link, so that a
/// work has the same key in every list, apart from one that is in `taken` already. Adds it there.
std::string citationKey(const CitedParts& parts, std::set<std::string>& taken);

std::string bibtexEntry(const CitedParts& parts, const std::string& key);
std::string risEntry(const CitedParts& parts);

}  // namespace kit
