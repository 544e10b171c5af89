#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Archive/LenientValues.h"

namespace kit {

/// One outlet or account that ran a story. `kind`, `url`, `precision` and `depth` are required.
struct TraceNode {
    /// How well the time is known.
    enum class Precision { minute, day, unknown };

    static constexpr std::string_view kLinkedAs = "linked as";
    static constexpr std::string_view kNamedAs = "named as";

    std::string kind{};  ///< "story", "post", "apple", …
    std::string url{};
    std::optional<std::string> title{};
    std::optional<std::string> publisher{};
    std::optional<Instant> publishedAt{};
    Precision precision = Precision::unknown;
    std::optional<LenientBool> readable{};  ///< the service could read the page; absent: unknown
    /// How it refers to its parent node: "linked", "named", …
    std::optional<std::string> relation{};
    /// 0 for an origin; a node's parent is the last earlier node with a smaller depth.
    LenientInt depth{};
    std::optional<std::string> note{};      ///< the words of the reference
    std::optional<std::string> platform{};  ///< of a social post

    /// kLinkedAs, kNamedAs, or empty when the relation is neither.
    std::string_view relationWording() const;

    bool operator==(const TraceNode&) const = default;
};

/// Who ran a story, from the origin on. `url` and `nodes` are required.
struct TraceResult {
    static constexpr std::string_view kWhileItRuns = "Looking for every outlet that ran it…";

    std::string url{};                   ///< of the traced story
    std::optional<std::string> query{};  ///< the words that were searched for
    std::vector<TraceNode> nodes{};
    std::optional<LenientInt> searched{};  ///< sources that were searched

    bool operator==(const TraceResult&) const = default;
};

template <>
inline constexpr std::array<EnumRow<TraceNode::Precision>, 3> enumTable<TraceNode::Precision>{{
    {TraceNode::Precision::minute, "minute", "To the minute"},
    {TraceNode::Precision::day, "day", "To the day"},
    {TraceNode::Precision::unknown, "unknown", "Unknown"},
}};

template <>
struct JSONFields<TraceNode> {
    static constexpr auto fields = std::tuple{
        field("kind", &TraceNode::kind),
        field("url", &TraceNode::url),
        field("title", &TraceNode::title),
        field("publisher", &TraceNode::publisher),
        field("published_at", &TraceNode::publishedAt),
        field("precision", &TraceNode::precision),
        field("readable", &TraceNode::readable),
        field("relation", &TraceNode::relation),
        field("depth", &TraceNode::depth),
        field("note", &TraceNode::note),
        field("platform", &TraceNode::platform),
    };
};

template <>
struct JSONFields<TraceResult> {
    static constexpr auto fields = std::tuple{
        field("url", &TraceResult::url),
        field("query", &TraceResult::query),
        field("nodes", &TraceResult::nodes),
        field("searched", &TraceResult::searched),
    };
};

}  // namespace kit
