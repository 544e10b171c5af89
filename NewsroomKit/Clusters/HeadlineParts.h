#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Clusters/ClusterVocabulary.h"
#include "NewsroomKit/Clusters/HeadlineNumber.h"
#include "NewsroomKit/Clusters/HeadlineTokens.h"

namespace kit {

/// A word, a known name of one to four words, or a number.
struct HeadlinePart {
    std::size_t token = 0;  ///< the first one
    std::size_t count = 1;  ///< of tokens
    std::uint64_t key = 0;
    double share = 0;  ///< of all headlines that hold it, as known beforehand
    const KnownWord* known = nullptr;
    /// Its parts point into the token.
    std::optional<HeadlineNumber> number{};
    /// Of a sum or measure in full: "€870mn" is 870 000 000; else the number itself.
    double amount = 0;
    char32_t currency = 0;
    std::string_view unit{};  ///< also "percent"
    bool hasMagnitude = false;
    bool isBuild = false;

    bool is(WordRole role) const { return known && known->role == role; }
    /// Names what the news is about rather than what has happened.
    bool isTopic() const;
    static constexpr double kCommonShare = 0.01;
    /// Everyday language, or said of every beta.
    bool isCommon() const {
        return (is(WordRole::common) && share >= kCommonShare) || is(WordRole::audience) ||
               is(WordRole::stage);
    }
    /// Function words and builds are none.
    bool isEvidence() const { return !isBuild && !is(WordRole::function); }
};

/// A text taken apart against the vocabulary.
class HeadlineParts {
public:
    explicit HeadlineParts(std::string_view text);
    HeadlineParts(const HeadlineParts&) = delete;  // parts point into the tokens
    HeadlineParts& operator=(const HeadlineParts&) = delete;

    std::span<const HeadlinePart> parts() const { return parts_; }
    const HeadlineToken& firstToken(const HeadlinePart& part) const { return tokens_[part.token]; }
    bool hasRole(WordRole role) const;
    std::string shownText(const HeadlinePart& part) const;

private:
    using Alias = ClusterVocabulary::Alias;
    void addNext(std::size_t at);
    const Alias* aliasAt(std::size_t at) const;
    bool isBeside(const Alias& alias, std::size_t at) const;
    HeadlinePart numberAt(std::size_t at) const;
    void addAmount(HeadlinePart& part) const;
    const std::string& textAt(std::size_t at) const;

    const ClusterVocabulary& vocabulary_;
    std::vector<HeadlineToken> tokens_;
    std::vector<HeadlinePart> parts_;
};

}  // namespace kit
