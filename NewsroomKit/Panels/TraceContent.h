#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Archive/TraceResult.h"

namespace kit {

/// An outlet or account of a trace, in its place in the tree.
struct TraceTreeRow {
    std::size_t depth = 0;                ///< 0 for an origin, at most kDeepestTrace
    std::optional<std::size_t> parent{};  ///< the row that it hangs below; none for an origin
    std::string publisher{};              ///< empty for an unknown outlet
    std::string platform{};               ///< of a post, unless the publisher names it already
    std::string title{};
    std::string url{};
    std::optional<Instant> publishedAt{};  ///< absent when the time is not known
    bool isDayOnly = false;
    /// How it refers to its parent: TraceNode::kLinkedAs, kNamedAs, or empty.
    std::string_view wording{};
    std::string words{};     ///< of the reference
    bool isAsked = false;    ///< the traced story itself
    bool isReadable = true;  ///< false when the service could not read its page

    bool operator==(const TraceTreeRow&) const = default;
};

/// Deeper nodes stand as if they were no deeper, so that their texts keep their room.
inline constexpr std::size_t kDeepestTrace = 8;

/// A node hangs below the last one before it that is less deep, however much less: the service
/// leaves depths out. `asked` is the address of the traced story.
std::vector<TraceTreeRow> traceTree(const std::vector<TraceNode>& nodes, std::string_view asked);

}  // namespace kit
