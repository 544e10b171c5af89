#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kit {

/// A company whose filings are followed: Apple and those of the board of quotes that file with the
/// SEC.
struct FilingCompany {
    std::int64_t cik;
    std::string_view name;
    std::string_view symbol;
    std::string_view relation;  ///< to Apple
};

inline constexpr std::array<FilingCompany, 10> filingCompanies{{
    {320193, "Apple", "AAPL", "Apple itself"},
    {1046179, "TSMC", "TSM", "makes its chips"},
    {24741, "Corning", "GLW", "makes its glass"},
    {1730168, "Broadcom", "AVGO", "makes radio chips"},
    {804328, "Qualcomm", "QCOM", "makes modems"},
    {789019, "Microsoft", "MSFT", "a peer"},
    {1652044, "Alphabet", "GOOGL", "a peer; pays for the search field"},
    {1018724, "Amazon", "AMZN", "a peer"},
    {1045810, "NVIDIA", "NVDA", "a peer"},
    {1067983, "Berkshire Hathaway", "BRK.B", "a holder"},
}};

/// Null for a company that is not followed.
constexpr const FilingCompany* filingCompany(std::int64_t cik) {
    for (const auto& company : filingCompanies) {
        if (company.cik == cik) return &company;
    }
    return nullptr;
}

}  // namespace kit
