#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// The data file of filings. Times are minutes before the world's anchor, negative ones after it;
/// README.md explains every key.
namespace pressroom {

struct WorldFilingDocument {
    std::string type{};  ///< "EX-99.1"
    std::string file{};
    std::string title{};
    std::vector<std::string> paragraphs{};
};

struct WorldInsider {
    std::int64_t cik = 0;
    std::string name{};
    std::optional<std::string> title{};  ///< absent: a director
};

struct WorldTrade {
    std::string code{};
    bool acquired = false;
    double shares = 0;
    std::optional<double> price{};  ///< absent: its note says why
    std::optional<double> after{};
    double daysBefore = 0;              ///< the form's acceptance
    std::optional<std::string> date{};  ///< as filed, in place of that
    std::optional<std::string> trust{};
    std::optional<std::int64_t> note{};  ///< from 1
};

struct WorldInsiderForm {
    std::vector<WorldInsider> owners{};
    std::optional<std::int64_t> issuer{};  ///< absent: the filer
    std::optional<bool> plan{};
    std::vector<WorldTrade> trades{};
    std::vector<std::string> notes{};
};

struct WorldSaleNotice {
    std::int64_t cik = 0;
    std::string person{};
    double shares = 0;
    double value = 0;
    double daysAhead = 0;
    std::string remarks{};
};

struct WorldFiling {
    std::int64_t number = 0;
    std::optional<std::string> agent{};  ///< the first part of its number; absent: the filer's
    std::string form{};
    double minutesAgo = 0;
    std::optional<double> shownMinutesAgo{};  ///< from then on it is listed, under its old date
    std::optional<double> periodDaysBefore{};
    std::optional<std::vector<std::string>> items{};
    std::optional<std::vector<WorldFilingDocument>> documents{};
    std::optional<WorldInsiderForm> insiders{};
    std::optional<WorldSaleNotice> notice{};
};

struct WorldFiler {
    std::int64_t cik = 0;
    std::string name{};
    std::string symbol{};
    std::vector<WorldFiling> filings{};
};

struct WorldFilings {
    std::vector<WorldFiler> filers{};
};

/// Reads the file in the folder `filings` below `directory` and checks it. Throws WorldError.
WorldFilings readFilingsWorld(const std::filesystem::path& directory);

}  // namespace pressroom
