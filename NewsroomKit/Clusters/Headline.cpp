#include "NewsroomKit/Clusters/Headline.h"

#include <algorithm>
#include <string>

#include "NewsroomKit/Clusters/HeadlineFactReader.h"
#include "NewsroomKit/Clusters/HeadlineParts.h"

namespace kit {

namespace {

void addWords(const HeadlineParts& parts, bool inTitle, std::vector<Headline::Word>& words) {
    for (const auto& part : parts.parts()) {
        if (!part.isEvidence()) continue;
        words.push_back({.key = part.key,
                         .usualShare = static_cast<float>(part.share),
                         .inTitle = inTitle,
                         .isTopic = part.isTopic(),
                         .isCommon = part.isCommon()});
    }
}

}  // namespace

Headline readHeadline(std::string_view title, std::string_view excerpt) {
    Headline headline;
    const HeadlineParts own(title.substr(0, kLongestHeadline));
    const HeadlineParts more(excerpt.substr(0, kLongestExcerpt));
    headline.facts = HeadlineFactReader(own, more).read();
    addWords(own, true, headline.words);
    addWords(more, false, headline.words);
    for (const auto& product : headline.facts.products) {
        if (const auto key = productKey(product); key != 0) {
            headline.words.push_back(
                {.key = key, .usualShare = kProductShare, .inTitle = true, .isTopic = true});
        }
    }
    for (const auto& figure : headline.facts.figures) {
        if (const auto key = stageKey(figure, headline.facts); key != 0) {
            headline.words.push_back({.key = key, .usualShare = kStageShare, .inTitle = true});
        }
    }
    // The title's rows come first, so that they stay.
    auto& words = headline.words;
    std::stable_sort(words.begin(), words.end(),
                     [](const auto& a, const auto& b) { return a.key < b.key; });
    const auto sameKey = [](const auto& a, const auto& b) { return a.key == b.key; };
    words.erase(std::unique(words.begin(), words.end(), sameKey), words.end());
    words.shrink_to_fit();
    return headline;
}

std::vector<TitleWord> titleWords(std::string_view title) {
    std::vector<TitleWord> words;
    const HeadlineParts own(title.substr(0, kLongestHeadline));
    for (const auto& part : own.parts()) {
        if (part.isEvidence()) words.push_back({own.shownText(part), part.key});
    }
    return words;
}

}  // namespace kit
