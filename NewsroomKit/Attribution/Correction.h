#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Stories/Sourcing.h"
#include "NewsroomKit/Stories/StoryKind.h"

namespace kit {

/// What the user says a rule got wrong about some stories.
struct Correction {
    enum class Kind {
        notSame,  ///< the first story tells other news than the others; one alone, of its own
        same,     ///< the stories tell the same news
        first,    ///< an outlet had the news of these stories first
        credit,   ///< these stories do not credit that outlet, or another one instead
        label,    ///< these stories are of another kind or sourced otherwise
    };

    /// What is right instead. Each kind has its own keys.
    struct Instead {
        std::optional<std::string> outlet{};  ///< first
        std::optional<std::string> link{};    ///< first: its article, as the proof
        std::optional<Instant> at{};          ///< first: when it was published
        std::optional<std::string> name{};    ///< credit: the outlet that the rules found
        std::optional<std::string> by{};      ///< credit: the right one; absent when there is none
        std::optional<StoryKind> kind{};      ///< label
        std::optional<Sourcing> sourcing{};   ///< label

        bool operator==(const Instead&) const = default;
    };

    std::string id{};
    Kind kind = Kind::notSame;
    std::vector<std::string> stories{};  ///< their ids
    std::optional<Instead> instead{};
    std::optional<std::string> note{};
    Instant madeAt{};

    bool operator==(const Correction&) const = default;
};

inline constexpr std::size_t kMostCorrectedStories = 500;
inline constexpr std::size_t kLongestCorrectionText = 2'000;  ///< bytes, of each text

/// Throws RecordError when the correction says nothing: without stories, or without what its kind
/// needs, or longer than the limits.
void requireSound(const Correction& correction);

template <>
inline constexpr std::array<EnumRow<Correction::Kind>, 5> enumTable<Correction::Kind>{{
    {Correction::Kind::notSame, "notSame", "Not the same news"},
    {Correction::Kind::same, "same", "The same news"},
    {Correction::Kind::first, "first", "First with it"},
    {Correction::Kind::credit, "credit", "Wrong credit"},
    {Correction::Kind::label, "label", "Wrong label"},
}};

template <>
struct JSONFields<Correction::Instead> {
    static constexpr auto fields = std::tuple{
        field("outlet", &Correction::Instead::outlet),
        field("link", &Correction::Instead::link),
        field("at", &Correction::Instead::at),
        field("name", &Correction::Instead::name),
        field("by", &Correction::Instead::by),
        field("kind", &Correction::Instead::kind),
        field("sourcing", &Correction::Instead::sourcing),
    };
};

template <>
struct JSONFields<Correction> {
    static constexpr auto fields = std::tuple{
        field("id", &Correction::id),           field("kind", &Correction::kind),
        field("stories", &Correction::stories), field("instead", &Correction::instead),
        field("note", &Correction::note),       field("madeAt", &Correction::madeAt),
    };
};

}  // namespace kit
