#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// Why the SEC's answer holds no filings. Its pages of refusal come with status 403 or 200 and are
/// told apart by their words.
enum class FilingsError { undeclared, threshold, noCompany, notFilings, malformed };

template <>
inline constexpr std::array<EnumRow<FilingsError>, 5> enumTable<FilingsError>{{
    {FilingsError::undeclared, "undeclared",
     "The SEC answers only programs that name a mail address of their user."},
    {FilingsError::threshold, "threshold", "The SEC has had too many requests from this network."},
    {FilingsError::noCompany, "noCompany", "The SEC knows no such company."},
    {FilingsError::notFilings, "notFilings", "The address didn't return filings."},
    {FilingsError::malformed, "malformed", "The filings couldn't be read."},
}};

constexpr std::string_view description(FilingsError error) { return label(error); }

enum class PartyRole { filer, issuer, reporting, subject, filedBy };

template <>
inline constexpr std::array<EnumRow<PartyRole>, 5> enumTable<PartyRole>{{
    {PartyRole::filer, "filer", "Filer"},
    {PartyRole::issuer, "issuer", "Issuer"},
    {PartyRole::reporting, "reporting", "Reporting"},
    {PartyRole::subject, "subject", "Subject"},
    {PartyRole::filedBy, "filedBy", "Filed by"},
}};

/// A company or person that a filing is listed under.
struct FilingParty {
    std::string name{};
    std::int64_t cik = 0;  ///< the SEC's number of it
    PartyRole role = PartyRole::filer;

    bool operator==(const FilingParty&) const = default;
};

template <>
struct JSONFields<FilingParty> {
    static constexpr auto fields =
        std::tuple{field("name", &FilingParty::name), field("cik", &FilingParty::cik),
                   field("role", &FilingParty::role)};
};

/// One filing, by its accession number. Days are "2026-11-03". The number's first part names who
/// sent it, which may be an agent, so that it says nothing of the company.
struct Filing {
    std::string accession{};
    std::string form{};
    std::string filed{};  ///< the legal day: after 17:30 in New York that of the next business day
    std::optional<Instant> accepted{};
    /// The list writes some companies' New York times as if they were UTC.
    std::optional<bool> acceptedDoubtful{};
    std::optional<std::string> period{};
    std::vector<std::string> items{};  ///< of an 8-K: "2.02"
    std::vector<FilingParty> parties{};
    std::optional<std::string> primaryDocument{};
    std::optional<std::string> documentURL{};
    std::optional<std::string> indexURL{};
    std::optional<std::string> amends{};  ///< the accession number of what it corrects

    bool operator==(const Filing&) const = default;
};

template <>
struct JSONFields<Filing> {
    static constexpr auto fields = std::tuple{
        field("accession", &Filing::accession),
        field("form", &Filing::form),
        field("filed", &Filing::filed),
        field("accepted", &Filing::accepted),
        field("acceptedDoubtful", &Filing::acceptedDoubtful),
        field("period", &Filing::period),
        field("items", &Filing::items),
        field("parties", &Filing::parties),
        field("primaryDocument", &Filing::primaryDocument),
        field("documentURL", &Filing::documentURL),
        field("indexURL", &Filing::indexURL),
        field("amends", &Filing::amends),
    };
};

using FilingsResult = boost::outcome_v2::unchecked<std::vector<Filing>, FilingsError>;

/// Reads a list of filings in any of the SEC's forms: a filer's submissions (JSON), a company's
/// feed, the feed of the latest filings. The newest acceptance comes first. A filing that is listed
/// once for each of its parties becomes one.
FilingsResult parseFilings(std::string_view bytes);

/// Apple, for whom the times of its submissions are known to be UTC.
inline constexpr std::int64_t appleCIK = 320193;

}  // namespace kit
