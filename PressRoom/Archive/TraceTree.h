#pragma once

#include <chrono>
#include <map>
#include <set>
#include <string>

#include <boost/json.hpp>

#include "PressRoom/Archive/References.h"

namespace pressroom {

/// A story's publisher, as the archive names it.
struct Outlet {
    std::string name;
    bool isApples = false;
};

using Outlets = std::map<std::string, Outlet, std::less<>>;  ///< by source id

/// The title; for a post, its text.
std::string archivedTitle(const Item& item);
/// "post", "apple", or `otherwise`.
std::string_view archivedKind(const Item& item, const Outlet& outlet, std::string_view otherwise);
/// "Bluesky", "Mastodon", or null.
boost::json::value archivedPlatform(const Item& item);

/// Goes from a story up to its origin, and from there down to all outlets that took it over.
class TraceTree {
public:
    TraceTree(const References& references, const Outlets& outlets, std::chrono::sys_seconds now)
        : references_(references), outlets_(outlets), now_(now) {}

    /// The nodes; each follows the one that it refers to.
    boost::json::array nodes(const Item& story);

private:
    const Item& originOf(const Item& story) const;
    void append(const Item& item, const Reference* reference, int depth);
    boost::json::object node(const Item& item, const Reference* reference, int depth) const;

    const References& references_;
    const Outlets& outlets_;
    std::chrono::sys_seconds now_;
    std::set<const Item*> seen_;
    boost::json::array nodes_;
};

}  // namespace pressroom
