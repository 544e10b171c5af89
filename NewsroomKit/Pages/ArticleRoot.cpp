#include "NewsroomKit/Pages/ArticleRoot.h"

#include <algorithm>
#include <vector>

#include "NewsroomKit/Pages/ArticleFurniture.h"

namespace kit {
namespace {

using Index = PageTree::Index;

/// A page with a smaller share of links is a document without anything around it.
constexpr double plainDocumentLinks = 0.03;
constexpr std::uint32_t leastProse = 25;
constexpr double mostProseLinks = 0.5;
/// An element is left for its parent when the parent has this much more prose.
constexpr double worthClimbing = 1.25;

/// Text that stands in the node itself or in inline elements, not in blocks of its own.
std::vector<std::uint32_t> proseOf(const PageTree& tree, const VisibleText& visible) {
    std::vector<std::uint32_t> prose(tree.nodes.size());
    std::vector<std::uint32_t> blockText(tree.nodes.size());
    for (auto i = static_cast<Index>(tree.nodes.size()); i-- > 1;) {
        const auto& node = tree.nodes[i];
        if (visible.isDropped(i)) continue;
        if (isBlockLevel(node.tag)) {
            const auto own = visible.size(i) - std::min(visible.size(i), blockText[i]);
            if (own >= leastProse && !isHeading(node.tag) &&
                visible.linkShare(i) < mostProseLinks) {
                prose[i] = own;
            }
            blockText[node.parent] += visible.size(i);
        } else {
            blockText[node.parent] += blockText[i];
        }
    }
    return prose;
}

double weightOf(std::uint32_t prose) {
    // A paragraph counts by its length up to three lines, so that many paragraphs outweigh one
    // long notice.
    return 1.0 + std::min(prose / 80.0, 4.0);
}

}  // namespace

Index articleRoot(const PageTree& tree, const VisibleText& visible) {
    if (visible.linkShare(0) < plainDocumentLinks) return 0;
    const auto prose = proseOf(tree, visible);

    // 1. Each paragraph speaks for the elements around it, the nearer the more.
    std::vector<double> scores(tree.nodes.size());
    std::vector<double> sums(tree.nodes.size());
    for (Index i = 1; i < tree.nodes.size(); ++i) {
        if (prose[i] == 0) continue;
        const double weight = weightOf(prose[i]);
        constexpr int levels = 4;
        double share = 1.0;
        Index at = tree.nodes[i].tag == PageTag::division ? i : tree.nodes[i].parent;
        for (int level = 0; level < levels && at != 0; ++level) {
            scores[at] += weight * share;
            share /= 2.0;
            at = tree.nodes[at].parent;
        }
        for (at = i; at != 0; at = tree.nodes[at].parent) sums[at] += weight;
        sums[0] += weight;
    }
    Index best = 0;
    double bestScore = 0;
    for (Index i = 1; i < tree.nodes.size(); ++i) {
        if (scores[i] == 0) continue;
        double score = scores[i] * (1.0 - visible.linkShare(i));
        if (namesArticleText(tree, tree.nodes[i])) score *= 1.2;
        if (tree.attribute(tree.nodes[i], PageAttribute::itemprop) == "articleBody") score *= 2;
        if (score > bestScore) {
            bestScore = score;
            best = i;
        }
    }

    // 2. Articles are split into sections and columns: the parent that holds more of the prose.
    for (Index at = best; at != 0;) {
        at = tree.nodes[at].parent;
        const auto tag = tree.nodes[at].tag;
        if (tag == PageTag::body || tag == PageTag::html) break;
        if (sums[at] > worthClimbing * sums[best]) best = at;
        if (tag == PageTag::article || tag == PageTag::mainContent) break;
    }
    return best;
}

}  // namespace kit
