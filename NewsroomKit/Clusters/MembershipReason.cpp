#include "NewsroomKit/Clusters/MembershipReason.h"

#include <algorithm>
#include <vector>

#include <fmt/format.h>

namespace kit {

namespace {

constexpr std::size_t kMostWords = 6;
/// Lighter words, such as the company's name, explain nothing.
constexpr float kLeastTellingWeight = 1.3F;

bool holdsAnyOf(const std::vector<std::uint64_t>& left, const std::vector<std::uint64_t>& right) {
    return std::any_of(left.begin(), left.end(), [&](std::uint64_t value) {
        return std::find(right.begin(), right.end(), value) != right.end();
    });
}

/// Of the words that both stories have those of the member's title, else those of the other's.
std::string sharedText(const ClusterEntry& member, const ClusterEntry& other) {
    const auto listed = [](const ClusterEntry& titled, const ClusterEntry& holding) {
        std::vector<std::string> words;
        for (auto& word : titleWords(titled.title)) {
            const auto& items = holding.vector.items;
            const auto row = std::lower_bound(
                items.begin(), items.end(), word.key,
                [](const HeadlineVector::Item& item, std::uint64_t key) { return item.key < key; });
            const bool isShared =
                row != items.end() && row->key == word.key && row->weight > kLeastTellingWeight;
            const bool isKnown = std::find(words.begin(), words.end(), word.text) != words.end();
            if (isShared && !isKnown && words.size() < kMostWords) words.push_back(word.text);
        }
        return fmt::format("{}", fmt::join(words, ", "));
    };
    const auto own = listed(member, other);
    return own.empty() ? listed(other, member) : own;
}

std::string sentence(const ClusterEntry& member, const ClusterEntry& other, EntryTie::Kind kind) {
    using Kind = EntryTie::Kind;
    const auto& name = other.sourceName.empty() ? other.storyID : other.sourceName;
    switch (kind) {
        case Kind::sameArticle: return fmt::format("Leads to the same article as {}.", name);
        case Kind::cites: {
            const bool isTeller = holdsAnyOf(member.cited, other.articles);
            return isTeller ? fmt::format("Credits {} with the news.", name)
                            : fmt::format("{} credits this story with the news.", name);
        }
        case Kind::sharedOrigin: return fmt::format("Credits the same article as {}.", name);
        case Kind::words:
        case Kind::none: break;
    }
    const auto words = sharedText(member, other);
    if (words.empty()) return fmt::format("Tells the same as the excerpt of {}.", name);
    return fmt::format("Same words as {}: {}.", name, words);
}

}  // namespace

std::string membershipReason(const ClusterEntry& member,
                             std::span<const ClusterEntry* const> cluster) {
    const ClusterEntry* nearest = nullptr;
    EntryTie best{.strength = -1};
    for (const ClusterEntry* other : cluster) {
        if (other == &member) continue;
        const auto tie = tieBetween(member, *other);
        if (tie.strength <= best.strength) continue;
        best = tie;
        nearest = other;
    }
    return nearest ? sentence(member, *nearest, best.kind) : std::string();
}

}  // namespace kit
