#include "NewsroomKit/Newsrooms/NewsroomMaking.h"

#include <utility>

#include "NewsroomKit/Newsrooms/GridLayout.h"
#include "NewsroomKit/Newsrooms/NewsroomLimits.h"

namespace kit {

NewsroomSpec madeNewsroom(std::string name, std::string symbol, std::span<const PanelKind> kinds,
                          StoryQuery focus) {
    NewsroomSpec parts{.id = UUID::random(),
                       .name = std::move(name),
                       .symbol = std::move(symbol),
                       .origin = NewsroomSpec::Origin::manual,
                       .focus = std::move(focus)};
    for (const auto& placed : GridLayout::packed(kinds)) {
        parts.panels.push_back({.id = UUID::random(),
                                .kind = placed.kind,
                                .title = std::string(label(placed.kind)),
                                .frame = placed.frame});
    }
    auto spec = NewsroomSpec::created(std::move(parts));
    NewsroomLimits::require(spec);
    return spec;
}

NewsroomSpec duplicated(const NewsroomSpec& spec, std::string name) {
    auto copy = spec;
    copy.id = UUID::random();
    copy.name = std::move(name);
    // There is only one built-in newsroom.
    if (copy.origin == NewsroomSpec::Origin::builtIn) copy.origin = NewsroomSpec::Origin::manual;
    for (auto& panel : copy.panels) panel.id = UUID::random();
    NewsroomLimits::require(copy);
    return copy;
}

Beat madeBeat(std::string name, std::string symbol, StoryQuery query, bool alerts) {
    if (!NewsroomSymbols::contains(symbol)) symbol = NewsroomSymbols::fallback;
    Beat beat{.id = UUID::random(),
              .name = std::move(name),
              .symbol = std::move(symbol),
              .query = std::move(query),
              .alerts = alerts};
    NewsroomLimits::require(beat);
    return beat;
}

}  // namespace kit
