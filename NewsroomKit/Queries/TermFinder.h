#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "NewsroomKit/Editorial/PhraseMatcher.h"

namespace kit {

/// Finds all terms of a query in one pass over a story's texts. The results equal those of
/// PhraseMatcher::matches for each term on the normalised text `title + "
///  " + summary`, some eight times as fast.
///
/// Two windows of four bytes that overlap in three are cut from each phrase: wherever a term
/// occurs, one of its windows begins at an even byte. So the text is scanned two bytes at a time:
/// for each pair of bytes a table gives the terms in whose windows it can be the first half, and
/// those in which it can be the second. Where both halves agree on a term, its phrase is compared.
/// The table covers both letter cases, so that ASCII texts are searched without being normalised.
class TermFinder {
public:
    /// No phrase may be empty.
    TermFinder(std::span<const PhraseMatcher> any, std::span<const PhraseMatcher> excluded);

    /// The texts mention none of the excluded terms and, when there are any-terms, one of those.
    bool admits(std::string_view title, std::string_view summary) const;

    /// The place of the first any-term that the texts mention.
    std::optional<std::size_t> firstAny(std::string_view title, std::string_view summary) const;

private:
    /// Terms share eight groups, one for each bit.
    static constexpr std::size_t kGroups = 8;

    struct Window {
        std::size_t term;
        std::ptrdiff_t offset;  ///< of the window in the phrase, -1 for the byte before it
    };
    enum class Next { goOn, stop };

    /// Calls `visit(term)` for each mentioned term, in any order and possibly repeatedly, until it
    /// asks to stop.
    template <class Visit>
    void find(std::string_view title, std::string_view summary, Visit visit) const;
    template <class Visit>
    Next findIn(std::string_view text, Visit& visit) const;
    template <class Visit>
    Next findAt(std::string_view text, std::size_t at, unsigned groups, Visit& visit) const;
    bool isAt(const Window& window, std::string_view text, std::size_t at) const;

    std::size_t anyCount_;
    std::vector<PhraseMatcher> terms_{};   ///< any-terms, then excluded ones
    bool spansTheSeam_ = false;            ///< a phrase holds a line break
    std::vector<std::uint16_t> halves_{};  ///< by pair of bytes: groups, low bits first halves
    std::array<std::vector<Window>, kGroups> windows_{};
};

}  // namespace kit
