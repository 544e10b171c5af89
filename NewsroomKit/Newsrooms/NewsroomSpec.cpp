#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

#include <algorithm>

#include "NewsroomKit/Newsrooms/NewsroomSymbols.h"

namespace kit {

NewsroomSpec NewsroomSpec::created(NewsroomSpec parts) {
    parts.version = kVersion;
    if (!NewsroomSymbols::contains(parts.symbol)) parts.symbol = NewsroomSymbols::fallback;
    return parts;
}

const StoryQuery& NewsroomSpec::effectiveQuery(const PanelSpec& panel) const {
    return panel.query ? *panel.query : focus;
}

std::int64_t NewsroomSpec::rowsUsed() const {
    if (panels.empty()) return 0;
    const auto lower = [](const PanelSpec& a, const PanelSpec& b) {
        return a.frame.bottom() < b.frame.bottom();
    };
    return std::max_element(panels.begin(), panels.end(), lower)->frame.bottom();
}

}  // namespace kit
