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

/// Finds a query's terms in stories, all of them in one pass over the texts. The answers are
/// those of PhraseMatcher::matches for each term on the normalised text
/// `title + " \n " + summary`, some eight times as fast.
///
/// A term can only be where one of two windows of four bytes is that overlap in three, cut
/// from its phrase: whatever the term's place, one of them begins at an even byte. So the text
/// is looked up two bytes at a time: a table tells for each pair of bytes in which terms'
/// windows it can be the first half and in which the second. Where both halves agree on a
/// term, its phrase is compared. Letter case is in the table, so that ASCII texts are searched
/// as they stand.
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

    /// Calls `visit(term)` for terms that the texts mention, in any order, some several times,
    /// until it says stop.
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
