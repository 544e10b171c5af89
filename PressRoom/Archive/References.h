#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "PressRoom/World/PublishedWorld.h"

namespace pressroom {

/// One story of the world refers to another, which appeared earlier.
struct Reference {
    const Item* from = nullptr;
    const Item* to = nullptr;
    bool isLink = true;      ///< otherwise it only names it
    std::string words = {};  ///< text of the link; may be empty
};

/// Which stories of the world refer to which. The world must outlive it.
class References {
public:
    explicit References(const PublishedWorld& world);

    /// The story with that address, on its own site or in its feed; nullptr when there is none.
    const Item* find(std::string_view address) const;

    /// References in the order of the text, one for each other story.
    std::vector<Reference> of(const Item& item) const { return listOf(of_, item); }
    std::vector<Reference> to(const Item& item) const { return listOf(to_, item); }

private:
    using Lists = std::map<const Item*, std::vector<Reference>>;

    static std::vector<Reference> listOf(const Lists& lists, const Item& item);
    void readLinks(const Item& item);
    void add(Reference reference);

    std::map<std::string, const Item*, std::less<>> items_;  ///< by lookup key
    Lists of_;
    Lists to_;
};

}  // namespace pressroom
