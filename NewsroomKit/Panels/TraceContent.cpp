#include "NewsroomKit/Panels/TraceContent.h"

#include <algorithm>

#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Text/Folding.h"

namespace kit {

namespace {

/// Nothing stands above an origin.
std::int64_t depthOf(const TraceNode& node) { return std::max<std::int64_t>(node.depth.value, 0); }

TraceTreeRow rowOf(const TraceNode& node) {
    TraceTreeRow row{.publisher = node.publisher.value_or(""),
                     .platform = node.platform.value_or(""),
                     .title = node.title.value_or(""),
                     .url = node.url,
                     .wording = node.relationWording(),
                     .words = node.note.value_or(""),
                     .isReadable = !node.readable || node.readable->value};
    // Many a name says it already: "Harbour on Gull".
    if (fold(row.publisher).find(fold(row.platform)) != std::string::npos) row.platform.clear();
    if (node.precision != TraceNode::Precision::unknown) row.publishedAt = node.publishedAt;
    row.isDayOnly = node.precision == TraceNode::Precision::day;
    return row;
}

}  // namespace

std::vector<TraceTreeRow> traceTree(const std::vector<TraceNode>& nodes, std::string_view asked) {
    const auto askedLink = canonicalLink(asked);
    std::vector<TraceTreeRow> rows;
    std::vector<std::size_t> path;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        while (!path.empty() && depthOf(nodes[path.back()]) >= depthOf(nodes[i])) path.pop_back();
        auto row = rowOf(nodes[i]);
        row.depth = std::min(path.size(), kDeepestTrace);
        row.isAsked = canonicalLink(row.url) == askedLink;
        if (!path.empty()) row.parent = path.back();
        rows.push_back(std::move(row));
        path.push_back(i);
    }
    return rows;
}

}  // namespace kit
