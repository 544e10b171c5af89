#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

/// Whether a headline is about the company of a quote: for the share by the rules for texts about
/// Apple, for others when it has the name or the symbol. Symbols that are words, or very short, are
/// known only as "$ON" and "(ON)".
class CompanyTopic {
public:
    explicit CompanyTopic(const StockQuote& quote);

    bool matches(std::string_view title) const;

private:
    struct Term {
        PhraseMatcher phrase;
        bool endsWord = false;  ///< "$ON" is not in "$ONE"

        bool matches(std::string_view normalizedTitle) const;
    };

    void addSymbol(std::string_view symbol);

    std::vector<Term> terms_;
    bool isApple_ = false;
};

}  // namespace kit
