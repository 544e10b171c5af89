#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "PressRoom/World/WorldFile.h"

namespace pressroom {

/// A story of the world once the anchor is known: it has an address, a key and a time.
struct Item {
    const WorldStory* story = nullptr;
    const WorldSource* source = nullptr;
    std::string key = {};    ///< short text the platform names the item by, unique in its feed
    std::string link = {};   ///< what the feed links to
    std::string page = {};   ///< address on the owner's own site
    std::string named = {};  ///< page of a story that it names without a link; often empty
    std::string text = {};   ///< plain; references to other stories are resolved in it
    std::string html = {};   ///< the same in HTML, often richer
    std::chrono::sys_seconds appears = {};
};

/// An item as the feed shows it at one moment.
struct Entry {
    const Item* item = nullptr;
    std::string title = {};
    std::optional<std::chrono::sys_seconds> dated = {};  ///< none for an item without date
    std::chrono::sys_seconds updated = {};               ///< of its newest headline

    const WorldStory& story() const { return *item->story; }
    const WorldSource& source() const { return *item->source; }

    std::string author() const;
    std::string publisher() const;

    /// The item's HTML with its picture, when that stands in the text, and the owner's footer.
    std::string body() const;

    /// Of a picture that stands in an element of its own; empty otherwise.
    std::string pictureURL(PicturePlace place) const;
};

/// What one feed holds at one moment, newest first.
struct Edition {
    const WorldSource* source = nullptr;
    std::vector<Entry> entries = {};
    std::chrono::sys_seconds changed = {};  ///< when this state of the feed came about
};

}  // namespace pressroom
