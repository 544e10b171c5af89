#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kit {

struct ListedSymbol {
    std::string exchange;
    std::string symbol;

    bool operator==(const ListedSymbol&) const = default;
};

/// Reads "Nasdaq:AAPL". Nothing when it is not of that form.
std::optional<ListedSymbol> listedSymbol(std::string_view text);

/// A symbol in a text with the place of its bracket: "Example, Inc. (NASDAQ: EXMP)".
struct SymbolInText {
    ListedSymbol listed;
    std::size_t at;
};

/// The first one in a text; brackets that name no stock exchange are skipped.
std::optional<SymbolInText> findSymbol(std::string_view text);

}  // namespace kit
