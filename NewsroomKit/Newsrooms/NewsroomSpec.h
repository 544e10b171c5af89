#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelSpec.h"

namespace kit {

/// The complete record of a newsroom, as it is stored, exported and shown.
struct NewsroomSpec {
    /// How it was created.
    enum class Origin { builtIn, described, manual };

    static constexpr std::int64_t kVersion = 1;
    static constexpr std::string_view kBuiltInID = "8B3D5F20-0000-4000-8000-00000000A7D1";

    std::int64_t version = kVersion;
    UUID id{};
    std::string name{};
    std::string symbol{};  ///< one of NewsroomSymbols, or what was stored
    Origin origin = Origin::manual;
    std::optional<std::string> prompt{};  ///< the description it was planned from
    StoryQuery focus{};                   ///< for panels without a query of their own
    std::vector<PanelSpec> panels{};      ///< in display and layering order

    /// Creates a newsroom from these parts: with the current version, and with the fallback for a
    /// symbol that is not in NewsroomSymbols. Nothing else is checked.
    static NewsroomSpec created(NewsroomSpec parts);

    /// "Today", which every library starts with: always the same id, but each call gives its
    /// panels fresh ones.
    static NewsroomSpec builtIn();

    const StoryQuery& effectiveQuery(const PanelSpec& panel) const;

    /// The lowest edge of all panels; 0 without panels.
    std::int64_t rowsUsed() const;

    bool operator==(const NewsroomSpec&) const = default;
};

template <>
inline constexpr std::array<EnumRow<NewsroomSpec::Origin>, 3> enumTable<NewsroomSpec::Origin>{{
    {NewsroomSpec::Origin::builtIn, "builtIn", "Built in"},
    {NewsroomSpec::Origin::described, "described", "From a description"},
    {NewsroomSpec::Origin::manual, "manual", "Made by hand"},
}};

template <>
struct JSONFields<NewsroomSpec> {
    static constexpr auto fields = std::tuple{
        field("version", &NewsroomSpec::version), field("id", &NewsroomSpec::id),
        field("name", &NewsroomSpec::name),       field("symbol", &NewsroomSpec::symbol),
        field("origin", &NewsroomSpec::origin),   field("prompt", &NewsroomSpec::prompt),
        field("focus", &NewsroomSpec::focus),     field("panels", &NewsroomSpec::panels),
    };
};

}  // namespace kit

template <>
struct std::hash<kit::NewsroomSpec> : kit::RecordHash<kit::NewsroomSpec> {};
