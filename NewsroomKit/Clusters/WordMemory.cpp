#include "NewsroomKit/Clusters/WordMemory.h"

#include <algorithm>
#include <cmath>

namespace kit {

WordMemory WordMemory::of(std::span<const Story> stories) {
    WordMemory memory;
    auto newest = Instant::min();
    for (const Story& story : stories) newest = std::max(newest, story.publishedAt);
    for (const Story& story : stories) {
        if (story.publishedAt < newest - kLeftOut) memory.add(story.title);
    }
    return memory;
}

void WordMemory::add(const Headline& headline) {
    ++titles_;
    for (const auto& word : headline.words) {
        if (word.inTitle) ++counts_[word.key];
    }
}

void WordMemory::add(std::string_view title) { add(readHeadline(title)); }

double WordMemory::weight(std::uint64_t key, double usualShare) const {
    const auto row = counts_.find(key);
    const double remembered = row == counts_.end() ? 0 : row->second;
    const double holding = 1 + remembered + kFormerTitles * usualShare;
    return std::max(0.0, std::log((static_cast<double>(titles_) + kFormerTitles) / holding));
}

}  // namespace kit
