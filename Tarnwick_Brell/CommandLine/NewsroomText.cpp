#include "Tarnwick_Brell/CommandLine/NewsroomText.h"

namespace brell {

boost::json::value recordOf(const desk::NewsroomShelf::Entry& entry) {
    if (entry.value) return newsroom::encode(*entry.value);
    return boost::json::object{
        {"id", entry.id}, {"name", entry.name}, {"unreadable", entry.fault}};
}

std::string panelsText(const newsroom::NewsroomSpec& spec) {
    if (spec.panels.empty()) return "no panels";
    std::string text;
    for (std::size_t i = 0; i < spec.panels.size(); ++i) {
        if (i > 0) text += i + 1 == spec.panels.size() ? " and " : ", ";
        text += rawValue(spec.panels[i].kind);
    }
    return text;
}

}  // namespace brell
