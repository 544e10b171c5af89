#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Newsrooms/GridFrame.h"
#include "NewsroomKit/Newsrooms/PanelKind.h"
#include "NewsroomKit/Newsrooms/PanelOptions.h"
#include "NewsroomKit/Newsrooms/UUID.h"
#include "NewsroomKit/Queries/StoryQuery.h"

namespace kit {

struct PanelSpec {
    UUID id{};  ///< within its newsroom
    PanelKind kind{};
    std::string title{};
    GridFrame frame{};
    std::optional<StoryQuery> query{};  ///< absent: the newsroom's current focus
    PanelOptions options{};

    bool operator==(const PanelSpec&) const = default;
};

template <>
struct JSONFields<PanelSpec> {
    static constexpr auto fields = std::tuple{
        field("id", &PanelSpec::id),       field("kind", &PanelSpec::kind),
        field("title", &PanelSpec::title), field("frame", &PanelSpec::frame),
        field("query", &PanelSpec::query), field("options", &PanelSpec::options),
    };
};

}  // namespace kit

template <>
struct std::hash<kit::PanelSpec> : kit::RecordHash<kit::PanelSpec> {};
