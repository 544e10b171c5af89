#pragma once

#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "PressRoom/World/Edition.h"

namespace pressroom {

/// The sample world tied to an anchor: every story has its address and its time. Immutable. The
/// same world and anchor always give the same items.
class PublishedWorld {
public:
    /// Throws std::runtime_error when a story refers to one that does not exist, or when
    /// two stories of a feed would have the same page.
    PublishedWorld(World world, std::chrono::sys_seconds anchor);
    PublishedWorld(const PublishedWorld&) = delete;
    PublishedWorld& operator=(const PublishedWorld&) = delete;

    const World& sources() const { return world_; }
    std::chrono::sys_seconds anchor() const { return anchor_; }

    /// The items of `source`, in the order of its file.
    const std::vector<Item>& items(const WorldSource& source) const;

    Edition edition(const WorldSource& source, std::chrono::sys_seconds now) const;

    std::chrono::sys_seconds instant(double minutesAgo) const;

private:
    enum class Place { plainText, markup };
    struct Page {
        std::string address;
        std::chrono::sys_seconds appears;
    };

    Item publish(const WorldSource& source, const WorldStory& story) const;
    std::string reference(const Item& from, std::string_view name) const;
    std::string resolved(const Item& from, std::string text, Place place) const;
    void resolve(Item& item) const;

    World world_;
    std::chrono::sys_seconds anchor_;
    std::map<std::string, std::vector<Item>, std::less<>> items_;  ///< by source id
    std::map<std::string, Page, std::less<>> pages_;               ///< by "source:slug"
};

/// "Apple’s “New” iPad: 5% Off" → "apples-new-ipad-5-off"
std::string slugOf(std::string_view title);

}  // namespace pressroom
