#include "NewsroomKit/Markets/CompanyTopic.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "NewsroomKit/Editorial/AppleTopic.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

constexpr std::string_view kAppleSymbol = "AAPL";
constexpr std::size_t kShortestSymbol = 3;

constexpr std::array<std::string_view, 14> kLegalForms{
    "Incorporated", "Corporation", "Inc.", "Inc",  "Corp.", "Corp",    "Limited",
    "Ltd.",         "Ltd",         "plc",  "N.V.", "SE",    "Company", "Co."};

// Symbols of shares that are words of headlines, sorted.
constexpr auto kWords = std::to_array<std::string_view>(
    {"ACT",  "ADD",  "AGO",  "AIM",  "AIR",  "ALL",   "ANY",  "APP",  "ARC",  "ARE",  "ARM",
     "ART",  "ASK",  "BALL", "BAR",  "BEAT", "BEST",  "BIG",  "BILL", "BIT",  "BOOK", "BOX",
     "BUD",  "CAN",  "CAR",  "CARE", "CARS", "CASH",  "CAT",  "CHEF", "CLUB", "COST", "DASH",
     "DAY",  "DEAL", "DEEP", "DIG",  "DOCS", "EAT",   "EDIT", "EYE",  "FAST", "FIVE", "FIX",
     "FLEX", "FLY",  "FOLD", "FOR",  "FORM", "FOUR",  "FREE", "FUN",  "GAP",  "GOLD", "GOOD",
     "GRAB", "GROW", "HAS",  "HEAR", "HERE", "HOLD",  "HOME", "HOPE", "HUB",  "ICE",  "ION",
     "IRON", "ITS",  "JOB",  "KEY",  "KIDS", "LAB",   "LAKE", "LAND", "LEG",  "LIFE", "LINE",
     "LIVE", "LOAN", "LOVE", "LOW",  "MAN",  "MARK",  "MASS", "MAX",  "MIND", "MOD",  "MOVE",
     "NET",  "NEW",  "NEXT", "NICE", "NOTE", "NOW",   "OPEN", "OUT",  "OWL",  "PATH", "PAY",
     "PEN",  "PLAY", "PLUG", "PLUS", "POST", "POWER", "PUMP", "RACE", "RAIL", "RARE", "REAL",
     "RIDE", "RING", "ROAD", "ROCK", "ROOT", "RUN",   "RUSH", "SAFE", "SAIL", "SAVE", "SEAT",
     "SEE",  "SHOP", "SITE", "SKY",  "SNAP", "SNOW",  "SON",  "SPOT", "STAR", "STEM", "STEP",
     "SUN",  "TALK", "TASK", "TEAM", "TECH", "TELL",  "TEN",  "TOP",  "TREE", "TRUE", "TURN",
     "TWO",  "UNIT", "VERY", "VIEW", "WALL", "WANT",  "WASH", "WAVE", "WAY",  "WELL", "WIN",
     "WING", "WIRE", "WISH", "WORD", "WORK", "YOU",   "ZIP",  "ZOOM"});
static_assert(std::ranges::is_sorted(kWords));

bool isWord(std::string_view symbol) {
    return symbol.size() < kShortestSymbol || std::ranges::binary_search(kWords, symbol);
}

bool isNumber(std::string_view text) { return std::ranges::all_of(text, isASCIIDigit); }

std::string_view withoutEnd(std::string_view name) {
    while (!name.empty() && (name.back() == ' ' || name.back() == ',')) name.remove_suffix(1);
    return name;
}

/// "Hon Hai Precision Industry Co., Ltd." with each of its closing legal forms taken off.
std::vector<std::string> namesOf(std::string_view name) {
    std::vector<std::string> names;
    bool isShortened = true;
    while (isShortened) {
        name = withoutEnd(name);
        if (name.empty()) break;
        names.emplace_back(name);
        isShortened = false;
        for (const auto form : kLegalForms) {
            if (!name.ends_with(form) || name.size() <= form.size()) continue;
            const char before = name[name.size() - form.size() - 1];
            if (before != ' ' && before != ',') continue;
            name.remove_suffix(form.size());
            isShortened = true;
            break;
        }
    }
    return names;
}

}  // namespace

bool CompanyTopic::Term::matches(std::string_view normalizedTitle) const {
    auto place = phrase.find(normalizedTitle);
    while (endsWord && place != std::string_view::npos) {
        const auto end = place + phrase.phrase.size();
        if (standsAsWords(normalizedTitle, place + 1, end)) return true;
        place = phrase.find(normalizedTitle, place + 1);
    }
    return place != std::string_view::npos;
}

CompanyTopic::CompanyTopic(const StockQuote& quote) : isApple_(quote.symbol == kAppleSymbol) {
    if (isApple_) return;
    for (const auto& name : namesOf(quote.name)) terms_.push_back({PhraseMatcher(name)});
    addSymbol(quote.symbol);
    const auto beforeMarket = std::string_view(quote.symbol).substr(0, quote.symbol.find('.'));
    if (beforeMarket.size() < quote.symbol.size() && !isNumber(beforeMarket)) {
        addSymbol(beforeMarket);
    }
}

void CompanyTopic::addSymbol(std::string_view symbol) {
    if (symbol.empty()) return;
    if (!isWord(symbol)) {
        terms_.push_back({PhraseMatcher(symbol)});
        return;
    }
    terms_.push_back({PhraseMatcher("$" + std::string(symbol)), true});
    terms_.push_back({PhraseMatcher("(" + std::string(symbol) + ")")});
}

bool CompanyTopic::matches(std::string_view title) const {
    if (isApple_) return AppleTopic::matches(title);
    const auto text = PhraseMatcher::normalize(title);
    return std::ranges::any_of(terms_, [&](const Term& term) { return term.matches(text); });
}

}  // namespace kit
