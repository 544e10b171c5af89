#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NewsroomKit/Feeds/WorkLimit.h"

namespace kit {

/// An element of a document that is read as a whole. Elements and attributes are found by their
/// local names, because publishers choose the prefixes.
struct XMLElement {
    std::string name{};
    std::string prefix{};
    std::vector<std::pair<std::string, std::string>> attributes{};
    std::string text{};  ///< its own characters, without those of its children
    std::vector<XMLElement> children{};

    /// Empty when there is no such attribute.
    std::string_view attribute(std::string_view attributeName) const;
    /// The first child of that name; one without a prefix comes before any other. Null when there
    /// is none.
    const XMLElement* child(std::string_view childName) const;
    /// The text of that child without white space around it; empty when there is none.
    std::string_view childText(std::string_view childName) const;
};

/// A document with more elements is not read.
inline constexpr std::size_t mostXMLElements = 300'000;

/// The root of a document in any encoding, read with the tolerance and the limits of parseFeed.
/// Nothing when the document is no sound XML or has too many elements.
std::optional<XMLElement> parseXMLTree(std::string_view bytes, const WorkLimit& limit = {});

}  // namespace kit
