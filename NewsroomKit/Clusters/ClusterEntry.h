#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "NewsroomKit/Clusters/Headline.h"
#include "NewsroomKit/Clusters/HeadlineGenre.h"
#include "NewsroomKit/Clusters/HeadlineVector.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// The part of a story that clustering needs.
struct ClusterEntry {
    std::string storyID{};
    /// The source; for aggregators that hide the outlets behind redirect links, the story itself.
    std::string outlet{};
    std::string sourceName{};
    std::string title{};
    Instant publishedAt{};
    HeadlineGenre genre = HeadlineGenre::news;
    Headline headline{};
    HeadlineVector vector{};
    std::vector<std::uint64_t> articles{};  ///< hashed links of what the story is or leads to
    std::vector<std::uint64_t> cited{};     ///< of the articles that it says it has the news from

    static ClusterEntry of(const Story& story);
};

/// How surely two entries tell the same news.
struct EntryTie {
    enum class Kind : std::uint8_t { none, words, sharedOrigin, cites, sameArticle };
    Kind kind = Kind::none;
    double strength = 0;      ///< from 0 to 1; 0 when what they share tells nothing
    double likeness = 0;      ///< at least the strength: of their words, telling or not
    bool isExcluded = false;  ///< the two cannot tell the same news
};
/// The strength that words alone give a tie, at most.
double wordStrength(const ClusterEntry& left, const ClusterEntry& right);
EntryTie tieBetween(const ClusterEntry& left, const ClusterEntry& right);

}  // namespace kit
