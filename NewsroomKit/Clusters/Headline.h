#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "NewsroomKit/Clusters/HeadlineFacts.h"

namespace kit {

/// What a headline and the first words of its excerpt say, as far as it decides whether another
/// one tells the same news.
struct Headline {
    struct Word {
        std::uint64_t key = 0;
        float usualShare = 0;  ///< of all headlines that hold it, as known beforehand
        bool inTitle = false;
        bool isTopic = false;   ///< names what the news is about rather than what has happened
        bool isCommon = false;  ///< everyday language
        bool operator==(const Word&) const = default;
    };

    std::vector<Word> words{};  ///< distinct, by key
    HeadlineFacts facts{};

    bool operator==(const Headline&) const = default;
};

/// Reads only the first kLongestHeadline bytes of the title, and of the excerpt the first
/// kLongestExcerpt.
Headline readHeadline(std::string_view title, std::string_view excerpt = {});
inline constexpr std::size_t kLongestHeadline = 600;
inline constexpr std::size_t kLongestExcerpt = 200;

/// A word of a title as it stands there, and its key among Headline::words.
struct TitleWord {
    std::string text{};  ///< folded; the known name of an entity
    std::uint64_t key = 0;
    bool operator==(const TitleWord&) const = default;
};

/// The words and figures of a title that are evidence, in their order.
std::vector<TitleWord> titleWords(std::string_view title);

}  // namespace kit
