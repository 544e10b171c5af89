#include "NewsroomKit/Pages/PageTree.h"

#include <algorithm>

namespace kit {

std::string_view PageTree::attribute(const Node& node, PageAttribute name) const {
    for (std::uint32_t i = 0; i < node.attributeCount; ++i) {
        const auto& stored = attributes[node.firstAttribute + i];
        if (stored.name == name) {
            return std::string_view(characters).substr(stored.begin, stored.end - stored.begin);
        }
    }
    return {};
}

bool PageTree::has(const Node& node, PageAttribute name) const {
    const auto first = attributes.begin() + node.firstAttribute;
    return std::any_of(first, first + node.attributeCount,
                       [&](const StoredAttribute& stored) { return stored.name == name; });
}

std::string PageTree::textInside(Index node) const {
    std::string result;
    for (Index at = node; at < nodes[node].end; ++at) {
        if (nodes[at].tag == PageTag::text) result += text(nodes[at]);
    }
    return result;
}

}  // namespace kit
