#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Stories/Story.h"

namespace kit {

inline const Instant kMonday = std::chrono::sys_days(std::chrono::year(2026) / 11 / 2);

/// That many minutes and 43 seconds after Monday, midnight UTC.
inline Instant minute(int minutes) {
    return kMonday + std::chrono::minutes(minutes) + std::chrono::seconds(43);
}

inline Story toldBy(std::string outlet, std::string id, Instant at,
                    Sourcing sourcing = Sourcing::rumor,
                    std::string title = "Apple Watch to gain a lamp") {
    return {.id = id,
            .link = "https://" + id + ".example/lamp",
            .title = std::move(title),
            .publishedAt = at,
            .sourceID = outlet,
            .sourceName = std::move(outlet),
            .sourcing = sourcing};
}

inline Story crediting(Story story, std::string name, std::string url = "") {
    story.credits.push_back({.name = std::move(name), .detail = "according to"});
    if (!url.empty()) story.credits.back().url = std::move(url);
    return story;
}

inline std::vector<const Story*> pointersTo(const std::vector<Story>& stories) {
    std::vector<const Story*> pointers;
    for (const auto& story : stories) pointers.push_back(&story);
    return pointers;
}

}  // namespace kit
