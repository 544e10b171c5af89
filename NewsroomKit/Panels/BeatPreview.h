#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Queries/TermMarks.h"

namespace kit {

/// What a beat being edited would find.
struct BeatDraft {
    StoryQuery query{};  ///< without the word that is being typed
    std::string typed{};

    /// With the word that is being typed.
    StoryQuery whole() const;
    /// Nothing is asked for: a beat on it would be the whole wire.
    bool isEmpty() const { return whole().isEmpty(); }
    /// `whole` and the words that might be proposed: what must be scanned for a preview.
    StoryQuery scanned() const;
};

/// The last two weeks of the wire as a beat would have shown them.
struct BeatPreview {
    static constexpr std::size_t kDays = 14;
    static constexpr std::size_t kMostMatches = 40;

    struct Match {
        StoryMention mention{};
        std::string summary{};
        TermMarks marks{};
    };
    struct Word {
        std::string word{};
        std::size_t stories = 0;
    };

    std::size_t stories = 0;
    std::array<std::size_t, kDays> perDay{};  ///< 24 hours each, the last one ends now
    std::vector<Word> words{};                ///< how many of the stories mention each, most first
    std::optional<Word> gain{};               ///< stories that only the word being typed finds
    std::optional<Word> otherForm{};          ///< a plural or singular that finds more stories
    std::string otherFormOf{};
    std::optional<Word> tooMuch{};  ///< a word that alone finds most of many stories
    std::vector<Match> matches{};   ///< the newest ones
};

/// `stories` match `draft.scanned()`, newest first, with their summaries.
BeatPreview beatPreview(const BeatDraft& draft, std::span<const PanelStory> stories, Instant now);

}  // namespace kit
