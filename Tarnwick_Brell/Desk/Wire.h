#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include <boost/container_hash/hash.hpp>
#include <boost/unordered/unordered_flat_set.hpp>

#include "Tarnwick_Brell/Desk/PackedStory.h"

namespace app {

/// What changed in the wire, for lists that follow it. First the removed stories go, then the
/// inserted ones come.
struct WireChange {
    std::vector<std::size_t> removed{};   ///< places before the change, falling
    std::vector<std::size_t> inserted{};  ///< places after the change, rising
    std::vector<std::size_t> revised{};   ///< places after the change of stories that were there
    std::vector<std::int64_t> removedNumbers{};  ///< of the removed stories, rising
    bool isReset = false;                        ///< everything may be different

    bool isEmpty() const {
        return !isReset && removed.empty() && inserted.empty() && revised.empty();
    }
};

/// All stories that retention keeps, newest first, in memory. Places count from 0 and change
/// with every insertion; numbers and ids stay.
class Wire {
public:
    /// Stories must have different numbers; they come in any order.
    using Batch = std::vector<PackedStory::Owner>;

    std::size_t size() const { return stories_.size(); }
    const PackedStory& operator[](std::size_t place) const { return *stories_[place]; }

    /// Null when there is no such story.
    const PackedStory* find(std::string_view id) const;
    std::optional<std::size_t> placeOf(std::int64_t number) const;
    /// Of the first story with a lower number; size() when there is none.
    std::size_t firstPlaceBelow(std::int64_t number) const;

    std::size_t savedCount() const { return savedCount_; }

    /// Puts the stories in place of everything.
    WireChange replace(Batch stories);
    /// Adds stories, and puts those whose number is known in the place of the older state.
    WireChange merge(Batch stories);
    /// Drops what retention and ceiling no longer keep, by the library's own rule: stories
    /// with a lower number than `lowest`, then the oldest beyond `ceiling`; saved ones stay.
    WireChange drop(std::int64_t lowest, std::size_t ceiling);

    /// Gives the stories with these numbers the mark; returns those that did not have it.
    std::vector<std::int64_t> setRead(const std::vector<std::int64_t>& numbers, bool read);
    std::vector<std::int64_t> setSaved(const std::vector<std::int64_t>& numbers, bool saved);

private:
    /// The ids lie in the stories themselves: a table of them would be as large as the titles.
    struct IDHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view id) const {
            return boost::hash<std::string_view>{}(id);
        }
        std::size_t operator()(const PackedStory* story) const { return (*this)(story->id()); }
    };
    struct EqualIDs {
        using is_transparent = void;
        static std::string_view idOf(std::string_view id) { return id; }
        static std::string_view idOf(const PackedStory* story) { return story->id(); }
        bool operator()(const auto& a, const auto& b) const { return idOf(a) == idOf(b); }
    };

    std::vector<std::int64_t> change(const std::vector<std::int64_t>& numbers,
                                     bool (PackedStory::*has)() const,
                                     void (PackedStory::*set)(bool), bool on);
    void index(const PackedStory& story);
    void forget(const PackedStory& story);

    std::vector<PackedStory::Owner> stories_;  ///< by number, falling
    boost::unordered_flat_set<const PackedStory*, IDHash, EqualIDs> byID_;
    std::size_t savedCount_ = 0;
};

}  // namespace app
