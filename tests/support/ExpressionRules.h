#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Editorial/MarketNews.h"
#include "NewsroomKit/Editorial/PhraseTables.h"
#include "NewsroomKit/Stories/Sourcing.h"
#include "NewsroomKit/Stories/StoryKind.h"
#include "NewsroomKit/Text/Pattern.h"

namespace kit {

/// One phrase as a regular expression of its own: the definition that PhraseMatcher and
/// PhraseAutomaton must agree with.
class PhraseExpression {
public:
    explicit PhraseExpression(std::string_view phrase, bool alwaysPlain = false);
    bool matches(std::string_view normalizedText) const;

private:
    std::string plain_;
    std::optional<Pattern> bounded_;
};

/// The editorial rules written out step by step with one expression per phrase: slow, and sharing
/// only the tables' data with the real ones.
class ExpressionRules {
public:
    ExpressionRules();

    StoryKind kind(std::string_view title, std::string_view summary) const;
    Sourcing sourcing(std::string_view title, std::string_view summary) const;
    bool isStockNews(std::string_view text) const;
    std::optional<MarketNews::Reason> marketReason(std::string_view text) const;
    /// The table's earliest phrase that occurs in the text.
    std::optional<std::string_view> first(PhraseTable table, std::string_view text) const;

private:
    bool occurs(PhraseTable table, std::string_view normalizedText) const;

    std::array<std::vector<PhraseExpression>, phraseTableCount> tables_;
    Pattern movement_;
};

}  // namespace kit
