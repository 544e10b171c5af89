#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "PressRoom/World/WorldFile.h"

namespace pressroom {

/// A story of the world tied to an anchor: it has an address, a key and a time.
struct Item {
    const WorldStory* story = nullptr;
    const WorldSource* source = nullptr;
    std::string key = {};    ///< the platform's short id of the item, unique in its feed
    std::string link = {};   ///< the address that the feed links to
    std::string page = {};   ///< address on the owner's own site
    std::string named = {};  ///< page of a story that it mentions without a link; may be empty
    std::string text = {};   ///< plain; references to other stories are resolved
    std::string html = {};   ///< the same in HTML, often richer
    std::chrono::sys_seconds appears = {};
};

/// An item as the feed shows it at one moment.
struct Entry {
    const Item* item = nullptr;
    std::string title = {};
    std::optional<std::chrono::sys_seconds> dated = {};  ///< absent for an undated item
    std::chrono::sys_seconds updated = {};               ///< of its newest headline

    const WorldStory& story() const { return *item->story; }
    const WorldSource& source() const { return *item->source; }

    std::string author() const;
    std::string publisher() const;

    /// The item's HTML with the owner's footer and, for pictures in the text, its picture.
    std::string body() const;

    /// The address of a picture in an element of its own; empty otherwise.
    std::string pictureURL(PicturePlace place) const;
};

/// The content of one feed at one moment, newest first.
struct Edition {
    const WorldSource* source = nullptr;
    std::vector<Entry> entries = {};
    std::chrono::sys_seconds changed = {};  ///< when the feed last changed
};

}  // namespace pressroom
