#include "NewsroomKit/Trackers/Releases/ReleaseTitle.h"

namespace kit {

std::string titleOf(const std::string& platform, const SoftwareRelease& release) {
    if (!release.title.empty()) return release.title;
    std::string name = platform;
    for (const auto& part : {release.version, release.stage}) {
        if (!part.empty()) name += " " + part;
    }
    return name;
}

}  // namespace kit
