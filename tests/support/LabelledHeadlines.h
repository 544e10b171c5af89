#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Stories/Story.h"

namespace test {

/// Invented headlines, each with the subject that it tells of. The files explain their format.
struct LabelledHeadlines {
    std::vector<kit::Story> stories{};
    std::vector<std::string> subjects{};  ///< of each story
    std::vector<std::string> groups{};    ///< of each story; easily mistaken subjects share one

    static LabelledHeadlines read(const std::filesystem::path& file);
};

/// How well a partition of stories agrees with their subjects.
struct PartitionScores {
    double precision = 0;  ///< B³
    double recall = 0;     ///< B³
    double f1 = 0;         ///< B³
    double pairPrecision = 0;
    double pairRecall = 0;
    double hardPairsJoined = 0;  ///< share of the pairs of different subjects in one group
    std::size_t hardPairs = 0;
};

/// `parts`: a number for each story, the same for those that stand together.
PartitionScores scoresOf(const LabelledHeadlines& labelled, const std::vector<std::size_t>& parts);

/// Stories in no cluster stand alone.
std::vector<std::size_t> partsOf(const LabelledHeadlines& labelled,
                                 const std::vector<kit::StoryCluster>& clusters);

}  // namespace test
