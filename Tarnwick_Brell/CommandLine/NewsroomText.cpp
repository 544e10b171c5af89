#include "Tarnwick_Brell/CommandLine/NewsroomText.h"

namespace cli {

std::string panelsText(const kit::NewsroomSpec& spec) {
    if (spec.panels.empty()) return "no panels";
    std::string text;
    for (std::size_t i = 0; i < spec.panels.size(); ++i) {
        if (i > 0) text += i + 1 == spec.panels.size() ? " and " : ", ";
        text += rawValue(spec.panels[i].kind);
    }
    return text;
}

}  // namespace cli
