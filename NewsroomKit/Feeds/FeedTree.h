#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/Feeds/FeedParser.h"
#include "NewsroomKit/Feeds/XMLTree.h"

namespace kit {

/// A feed with all elements of its items, for readers of elements that a FeedEntry has no place
/// for: the scope of a court's feed, the stock symbols of a wire.
struct FeedTree {
    XMLElement channel;  ///< RSS's channel or Atom's feed, without the items
    std::vector<XMLElement> items;
    bool isAtom = false;
    bool reachedLimit = false;  ///< the document has more items
};

/// The first items of the document, at most this many.
inline constexpr std::size_t feedTreeItemLimit = 10'000;

boost::outcome_v2::unchecked<FeedTree, FeedParserError> parseFeedTree(std::string_view bytes,
                                                                      const WorkLimit& limit = {});

/// The feed in a document that has been read. Nothing when its root is not a feed's.
std::optional<FeedTree> feedTree(XMLElement root);

/// The link of an item or a feed to a page: the text of RSS's element, or the address of Atom's
/// that has no relation or is the "alternate". Empty when there is none.
std::string_view pageLink(const XMLElement& item);

}  // namespace kit
