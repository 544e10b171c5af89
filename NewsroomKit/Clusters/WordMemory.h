#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>

#include "NewsroomKit/Clusters/Headline.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// How many earlier headlines each word stood in, so that a word's weight does not depend on the
/// news of the day: the name in a day's biggest story stays a rare word.
class WordMemory {
public:
    /// The newest headlines, which are still news, are left out of the memory.
    static constexpr std::chrono::hours kLeftOut{48};

    /// The titles of the stories that are older than kLeftOut before the newest of them.
    static WordMemory of(std::span<const Story> stories);

    /// Counts the words of the title.
    void add(const Headline& headline);
    void add(std::string_view title);

    std::size_t titleCount() const { return titles_; }

    /// Grows with the word's rarity. `usualShare` of kFormerTitles earlier headlines are counted on
    /// top of those remembered; it is 0 for words that are not known beforehand.
    double weight(std::uint64_t key, double usualShare) const;
    static constexpr double kFormerTitles = 2000;

    bool operator==(const WordMemory&) const = default;

private:
    std::unordered_map<std::uint64_t, std::uint32_t> counts_;
    std::size_t titles_ = 0;
};

}  // namespace kit
