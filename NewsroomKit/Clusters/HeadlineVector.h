#pragma once

#include <cstdint>
#include <vector>

#include "NewsroomKit/Clusters/Headline.h"
#include "NewsroomKit/Clusters/WordMemory.h"

namespace kit {

/// A headline's words with their weights.
struct HeadlineVector {
    struct Item {
        std::uint64_t key = 0;
        float weight = 0;
        bool inTitle = false;
        bool isDistinctive = false;  ///< neither a topic's name nor everyday language
    };
    std::vector<Item> items{};  ///< by key
    float titleSquares = 0;     ///< sum of the title's squared weights
    float allSquares = 0;       ///< likewise with the excerpt's words, which count less
};

HeadlineVector headlineVector(const Headline& headline, const WordMemory& memory);

/// What two headlines share.
struct SharedWords {
    double ofTitles = 0;     ///< cosine of the titles
    double ofAll = 0;        ///< cosine of titles and excerpts together
    double leftCovered = 0;  ///< how much of the left title the right story says
    double rightCovered = 0;
    double weight = 0;       ///< sum of the weights of the shared words
    double distinctive = 0;  ///< of which that of the distinctive ones
    unsigned count = 0;      ///< of the shared words that tell something
    unsigned distinctiveCount = 0;
};
SharedWords sharedWords(const HeadlineVector& left, const HeadlineVector& right);

/// From 0 to 1.
double likeness(const SharedWords& shared);
/// Whether what they share is more than a topic or everyday language.
bool isTelling(const SharedWords& shared);

}  // namespace kit
