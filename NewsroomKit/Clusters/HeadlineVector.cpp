#include "NewsroomKit/Clusters/HeadlineVector.h"

#include <algorithm>
#include <cmath>

namespace kit {

namespace {

// What a word of the excerpt counts beside one of the title.
constexpr float kExcerptShare = 0.5F;
// How much of a title's word is covered by the same word in the other's excerpt.
constexpr double kExcerptCover = 0.8;
// A shared name alone is a topic, not news, and so are names together with words that any headline
// may contain. One rare word alone may be a chance; the second one must weigh at least this much.
constexpr double kTellingWeight = 1.8;
// A distinctive word that has no other one beside it weighs at least as much.
constexpr double kRareWord = 4.0;
constexpr float kEveryday = 0.04F;
constexpr double kLeastDistinctiveWeight = 2.9;
constexpr double kLeastSharedWeight = 9.0;
// Less is enough where a short title says hardly anything else: "iCloud is down again".
constexpr double kMostlyCovered = 0.7;
constexpr double kLeastOfShortTitle = 4.5;
// Titles of which each says most of the other need nothing rare.
constexpr unsigned kLeastOfSameTitle = 3;

// Names of products and companies recur with every piece of news about them.
constexpr float kTopicShare = 0.8F;

double ratio(double part, double whole) { return whole > 0 ? part / whole : 0; }

}  // namespace

HeadlineVector headlineVector(const Headline& headline, const WordMemory& memory) {
    HeadlineVector vector;
    vector.items.reserve(headline.words.size());
    for (const auto& word : headline.words) {
        const auto rarity = static_cast<float>(memory.weight(word.key, word.usualShare));
        const float weight = word.isTopic ? rarity * kTopicShare : rarity;
        const float counted = word.inTitle ? weight : weight * kExcerptShare;
        vector.items.push_back(
            {.key = word.key,
             .weight = weight,
             .inTitle = word.inTitle,
             .isDistinctive = !word.isTopic && !word.isCommon && word.usualShare < kEveryday});
        if (word.inTitle) vector.titleSquares += weight * weight;
        vector.allSquares += counted * counted;
    }
    return vector;
}

SharedWords sharedWords(const HeadlineVector& left, const HeadlineVector& right) {
    SharedWords shared;
    double titles = 0;
    double all = 0;
    double leftCovered = 0;
    double rightCovered = 0;
    auto other = right.items.begin();
    for (const auto& item : left.items) {
        while (other != right.items.end() && other->key < item.key) ++other;
        if (other == right.items.end()) break;
        if (other->key != item.key) continue;
        const double square = static_cast<double>(item.weight) * item.weight;
        const double fields = (item.inTitle ? 1.0 : kExcerptShare) *
                              (other->inTitle ? 1.0 : static_cast<double>(kExcerptShare));
        all += square * fields;
        if (item.inTitle && other->inTitle) titles += square;
        if (item.inTitle) leftCovered += square * (other->inTitle ? 1 : kExcerptCover);
        if (other->inTitle) rightCovered += square * (item.inTitle ? 1 : kExcerptCover);
        shared.weight += item.weight * fields;
        if (item.isDistinctive) {
            shared.distinctive += item.weight * fields;
            if (item.weight * fields >= kTellingWeight) ++shared.distinctiveCount;
        }
        if (item.weight * fields >= kTellingWeight) ++shared.count;
    }
    shared.ofTitles = ratio(titles, std::sqrt(double(left.titleSquares) * right.titleSquares));
    shared.ofAll = ratio(all, std::sqrt(double(left.allSquares) * right.allSquares));
    shared.leftCovered = ratio(leftCovered, left.titleSquares);
    shared.rightCovered = ratio(rightCovered, right.titleSquares);
    return shared;
}

bool isTelling(const SharedWords& shared) {
    const double covered = std::max(shared.leftCovered, shared.rightCovered);
    const bool isShortTitle = covered >= kMostlyCovered && shared.weight >= kLeastOfShortTitle;
    if (shared.count >= kLeastOfSameTitle &&
        std::min(shared.leftCovered, shared.rightCovered) >= kMostlyCovered) {
        return true;
    }
    const bool isNamed = shared.distinctiveCount >= 2 || shared.distinctive >= kRareWord;
    return isNamed && shared.distinctive >= kLeastDistinctiveWeight && shared.count >= 2 &&
           (shared.weight >= kLeastSharedWeight || isShortTitle);
}

double likeness(const SharedWords& shared) {
    return 0.5 * shared.ofAll + 0.25 * (shared.leftCovered + shared.rightCovered);
}

}  // namespace kit
