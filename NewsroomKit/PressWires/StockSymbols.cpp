#include "NewsroomKit/PressWires/StockSymbols.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

// What wires write before a symbol, in lower case.
constexpr std::array<std::string_view, 27> kExchanges{
    "nasdaq",    "nasdaqgs", "nasdaq gs",     "nasdaq gm", "nasdaq cm", "nyse",  "nyse american",
    "nyse arca", "nyse mkt", "nyse-american", "amex",      "otc",       "otcqb", "otcqx",
    "otc pink",  "otcmkts",  "tsx",           "tsxv",      "tsx-v",     "lse",   "lon",
    "euronext",  "fra",      "xetra",         "hkex",      "tokyo",     "paris"};

constexpr std::size_t kLongestSymbol = 10;
constexpr std::size_t kLongestExchange = 24;

bool isSymbol(std::string_view text) {
    return !text.empty() && text.size() <= kLongestSymbol && std::ranges::all_of(text, [](char c) {
        return isASCIIAlphanumeric(c) || c == '.' || c == '-';
    });
}

bool isExchange(std::string_view text) {
    const auto lower = lowercasedASCII(text);
    return std::ranges::find(kExchanges, lower) != kExchanges.end();
}

}  // namespace

std::optional<ListedSymbol> listedSymbol(std::string_view text) {
    const auto colon = text.find(':');
    if (colon > kLongestExchange) return std::nullopt;
    const auto exchange = trimWhitespaceAndNewlines(text.substr(0, colon));
    auto symbol = trimWhitespaceAndNewlines(text.substr(colon + 1));
    // "NYSE: BRK.A, BRK.B" names two classes of one share.
    symbol = symbol.substr(0, symbol.find_first_of(",;/ "));
    if (exchange.empty() || !isSymbol(symbol)) return std::nullopt;
    return ListedSymbol{std::string(exchange), std::string(symbol)};
}

std::optional<SymbolInText> findSymbol(std::string_view text) {
    for (auto at = text.find('('); at != std::string_view::npos; at = text.find('(', at + 1)) {
        const auto end = text.find(')', at);
        if (end == std::string_view::npos) break;
        auto listed = listedSymbol(text.substr(at + 1, end - at - 1));
        if (listed && isExchange(listed->exchange)) return SymbolInText{std::move(*listed), at};
    }
    return std::nullopt;
}

}  // namespace kit
