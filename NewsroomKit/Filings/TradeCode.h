#pragma once

#include <array>
#include <string_view>

namespace kit {

/// What a letter on Forms 3, 4 and 5 means. It says nothing of the direction, which has a mark of
/// its own.
struct TradeCode {
    char letter;
    std::string_view meaning;   ///< the SEC's sense of it
    std::string_view acquired;  ///< the verb for shares that came
    std::string_view disposed;  ///< and for those that went
    bool isDecision;            ///< a choice of the person, not a routine of the pay
};

inline constexpr std::array<TradeCode, 20> tradeCodes{{
    {'P', "Purchase in the market or from a person", "bought", "bought", true},
    {'S', "Sale in the market or to a person", "sold", "sold", true},
    {'A', "Grant or award", "was granted", "gave up a grant of", false},
    {'D', "Returned to the company", "received back", "returned to the company", false},
    {'F', "Withheld for tax or the exercise price", "received", "had withheld for tax", false},
    {'I', "Transfer within a plan", "moved into a plan", "moved within a plan", false},
    {'M', "Exercise or vesting", "received on vesting", "exercised", false},
    {'C', "Conversion", "received by conversion", "converted", false},
    {'E', "Expiry of a short position", "was released from", "let expire", false},
    {'H', "Expiry of a long position", "let expire", "let expire", false},
    {'O', "Exercise out of the money", "received on exercise", "exercised", false},
    {'X', "Exercise in the money", "received on exercise", "exercised", false},
    {'G', "Gift", "was given", "gave away", true},
    {'L', "Small acquisition", "bought in a small purchase", "sold in a small amount", false},
    {'W', "Will or inheritance", "inherited", "left by will", false},
    {'Z', "Voting trust", "took from a voting trust", "placed in a voting trust", false},
    {'J', "Other, explained in a note", "acquired in another way", "disposed of in another way",
     true},
    {'K', "Equity swap", "acquired by a swap", "disposed of by a swap", false},
    {'U', "Tendered in a change of control", "received in a tender", "tendered", false},
    {'V', "Reported earlier than required", "acquired", "disposed of", false},
}};

/// Null for a letter that the SEC has not defined.
constexpr const TradeCode* tradeCode(std::string_view letter) {
    for (const auto& row : tradeCodes) {
        if (letter.size() == 1 && letter[0] == row.letter) return &row;
    }
    return nullptr;
}

/// P, S, G and J: what is told by default.
constexpr bool isDecision(std::string_view letter) {
    const auto* const row = tradeCode(letter);
    return row != nullptr && row->isDecision;
}

}  // namespace kit
