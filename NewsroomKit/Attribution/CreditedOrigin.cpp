#include "NewsroomKit/Attribution/CreditedOrigin.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "NewsroomKit/Attribution/TellingOutlet.h"

namespace kit {

namespace {

/// An outlet that others credit.
struct CreditedNode {
    std::string outlet{};
    bool isLinked = false;
    std::set<std::string> creditedBy{};  ///< keys
};

using CreditedNodes = std::map<std::string, CreditedNode>;

CreditedNodes creditedNodes(std::span<const Telling> tellings) {
    CreditedNodes nodes;
    for (const auto& telling : tellings) {
        for (const auto& credit : telling.credits) {
            auto& node = nodes[outletKey(credit.outlet)];
            node.outlet = credit.outlet;
            node.isLinked = node.isLinked || credit.isLinked;
            node.creditedBy.insert(telling.key);
        }
    }
    return nodes;
}

std::set<std::string> creditingKeys(std::span<const Telling> tellings) {
    std::set<std::string> keys;
    for (const auto& telling : tellings) {
        if (!telling.credits.empty()) keys.insert(telling.key);
    }
    return keys;
}

/// The same by each outlet's earliest story alone: later ones may credit those that followed it.
std::set<std::string> creditingAtFirst(std::span<const Telling> tellings) {
    std::map<std::string, const Telling*> earliest;
    for (const auto& telling : tellings) {
        auto& known = earliest[telling.key];
        if (!known || telling.at < known->at) known = &telling;
    }
    std::set<std::string> keys;
    for (const auto& [key, telling] : earliest) {
        if (!telling->credits.empty()) keys.insert(key);
    }
    return keys;
}

std::optional<CreditedOrigin> bestEnd(const CreditedNodes& nodes,
                                      const std::set<std::string>& crediting) {
    std::optional<CreditedOrigin> best;
    std::tuple<bool, std::size_t> bestRank{};
    for (const auto& [key, node] : nodes) {
        if (crediting.contains(key)) continue;
        const std::tuple rank{node.isLinked, node.creditedBy.size()};
        if (best && rank < bestRank) continue;
        if (best && rank == bestRank) {
            best = CreditedOrigin{};
            continue;
        }
        best = CreditedOrigin{.outlet = node.outlet, .key = key, .isLinked = node.isLinked};
        bestRank = rank;
    }
    return best;
}

}  // namespace

std::optional<CreditedOrigin> creditedOrigin(std::span<const Telling> tellings) {
    const auto nodes = creditedNodes(tellings);
    if (auto end = bestEnd(nodes, creditingKeys(tellings))) return end;
    return bestEnd(nodes, creditingAtFirst(tellings));
}

std::int64_t creditingOutlets(std::span<const Telling> tellings, const std::string& key) {
    const auto nodes = creditedNodes(tellings);
    const auto found = nodes.find(key);
    return found == nodes.end() ? 0 : static_cast<std::int64_t>(found->second.creditedBy.size());
}

}  // namespace kit
