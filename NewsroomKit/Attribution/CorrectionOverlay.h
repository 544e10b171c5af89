#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Attribution/Correction.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// What a list of corrections says in the end: where two contradict each other, the one that was
/// made later wins, of equally late ones the later in the list.
class CorrectionOverlay {
public:
    struct Label {
        std::optional<StoryKind> kind{};
        std::optional<Sourcing> sourcing{};

        bool operator==(const Label&) const = default;
    };

    struct First {
        std::string correctionID{};
        std::string outlet{};
        std::optional<std::string> link{};
        std::optional<Instant> at{};
    };

    CorrectionOverlay() = default;
    explicit CorrectionOverlay(std::span<const Correction> corrections);

    /// The label that the user gave the story; null without one.
    const Label* labelOf(std::string_view storyID) const;
    /// Whether the story's label or one of its credits is corrected.
    bool changes(std::string_view storyID) const;
    /// Gives the story its corrected labels and credits.
    void applyTo(Story& story) const;

    /// Who was first with the news that these stories tell; null when the user has not said it.
    const First* firstOf(std::span<const std::string_view> storyIDs) const;

    /// Stories that tell the same news: groups without a common story, none with two stories that
    /// are apart.
    const std::vector<std::vector<std::string>>& joined() const { return joined_; }
    /// Stories that tell different news: the one that was split off, then another one; alone, it
    /// tells the news of no other.
    const std::vector<std::vector<std::string>>& apart() const { return apart_; }

    /// Corrections of which nothing remains, because later ones say otherwise.
    const std::set<std::string, std::less<>>& overruled() const { return overruled_; }

private:
    /// By the folded name of the credited outlet; an absent name drops the credit.
    using CreditChanges = std::map<std::string, std::optional<std::string>>;

    void addLabels(std::span<const Correction* const> byAge);
    void addCredits(std::span<const Correction* const> byAge);
    void addFirsts(std::span<const Correction* const> byAge);
    void addRelations(std::span<const Correction* const> byAge);

    std::map<std::string, Label, std::less<>> labels_;
    std::map<std::string, CreditChanges, std::less<>> credits_;
    std::vector<First> firsts_;  ///< the oldest first
    std::map<std::string, std::size_t, std::less<>> firstOfStory_;
    std::vector<std::vector<std::string>> joined_;
    std::vector<std::vector<std::string>> apart_;
    std::set<std::string, std::less<>> overruled_;
};

}  // namespace kit
