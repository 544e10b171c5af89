#include "Tarnwick_Brell/CommandLine/QuoteOptions.h"

#include <stdexcept>

#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/Storage/Settings/SettingKey.h"

namespace cli {

std::string knownSymbol(std::string typed) {
    for (auto& letter : typed) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    try {
        return app::SettingKey::named(app::SettingKey::kFocusSymbol)->stored(typed);
    } catch (const std::invalid_argument&) {
        throw WrongUsage("\"" + typed +
                         "\" is not the symbol of a share or an index. Symbols look like AAPL.");
    }
}

kit::QuoteRange rangeNamed(const std::string& name) {
    if (const auto range = kit::enumFromRaw<kit::QuoteRange>(name)) return *range;
    throw WrongUsage("There is no range named " + name + ". The ranges are 1d, 1w, 1m and 1y.");
}

}  // namespace cli
