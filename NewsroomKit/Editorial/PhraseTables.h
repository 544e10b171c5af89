#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// Every phrase table of the editorial rules.
enum class PhraseTable {
    // Story kind
    kindExclusion,
    deal,
    review,
    roundup,
    sponsored,
    advertisement,
    // Sourcing
    fulfilledRumor,
    rumor,
    report,
    appleSpeaks,
    spokesperson,
    speech,
    release,
    // Share price
    stockExclusion,
    stock,
    // Why the market moved
    // clang-format off
    marketExclusion, marketEarnings, marketAnalysts, marketLegal, marketTrade, marketSupply,
    marketSales, marketLeadership, marketDeal,
    // clang-format on
    // About Apple at all
    appleTopic
};

inline constexpr std::size_t phraseTableCount = 25;

/// The table's name for people, in the plural: "deal phrases".
std::string_view tableName(PhraseTable table);

/// The table's phrases in their order, already normalised.
std::span<const std::string_view> phrases(PhraseTable table);

/// Whether the table's phrases match as plain substrings even when they are words.
constexpr bool isPlainTable(PhraseTable table) { return table == PhraseTable::kindExclusion; }

/// For each table, its earliest phrase that occurs in a text, as if its phrases were tested one by
/// one in order.
class PhraseHits {
public:
    std::optional<std::string_view> first(PhraseTable table) const;
    bool has(PhraseTable table) const { return first_[index(table)] != none; }

    /// Records the phrase. True when it is earlier in its table than those recorded before.
    bool record(PhraseTable table, std::uint16_t phraseIndex) {
        auto& first = first_[index(table)];
        if (phraseIndex >= first) return false;
        first = phraseIndex;
        return true;
    }

private:
    static constexpr std::uint16_t none = 0xFFFF;
    static constexpr std::size_t index(PhraseTable table) {
        return static_cast<std::size_t>(table);
    }

    std::array<std::uint16_t, phraseTableCount> first_ = [] {
        std::array<std::uint16_t, phraseTableCount> empty{};
        empty.fill(none);
        return empty;
    }();
};

/// The phrase that decided a rule. Its texts live as long as the process.
struct RuleHit {
    enum class Where { title, summary, titleAndSummary, source, text };

    std::string_view table;   ///< the table's name for people, e.g. "deal phrases"
    std::string_view phrase;  ///< as the table has it, normalised; empty for a source
    Where where = Where::title;

    bool operator==(const RuleHit&) const = default;
};

/// titleAndSummary: a phrase that begins in the title and ends in the summary.
template <>
inline constexpr std::array<EnumRow<RuleHit::Where>, 5> enumTable<RuleHit::Where>{{
    {RuleHit::Where::title, "title", "headline"},
    {RuleHit::Where::summary, "summary", "excerpt"},
    {RuleHit::Where::titleAndSummary, "titleAndSummary", "headline and excerpt together"},
    {RuleHit::Where::source, "source", "source"},
    {RuleHit::Where::text, "text", "text"},
}};

/// The table's earliest phrase among `hits`; nothing when none occurred.
std::optional<RuleHit> ruleHit(PhraseTable table, const PhraseHits& hits, RuleHit::Where where);

}  // namespace kit
