#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

#include "NewsroomKit/Filings/FilingForms.h"
#include "NewsroomKit/Records/RecordError.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::string_view amendmentMark = "/A";

// Ten have been seen.
constexpr std::size_t mostParties = 200;

bool isAmendment(const Filing& filing) { return filing.form.ends_with(amendmentMark); }

std::string_view baseForm(const Filing& filing) {
    std::string_view form = filing.form;
    if (isAmendment(filing)) form.remove_suffix(amendmentMark.size());
    return form;
}

bool shareParty(const Filing& one, const Filing& other) {
    if (one.parties.empty() && other.parties.empty()) return true;  // a page of one list
    return std::ranges::any_of(one.parties, [&](const FilingParty& party) {
        return std::ranges::any_of(other.parties, [&](const FilingParty& candidate) {
            return candidate.cik == party.cik;
        });
    });
}

/// A filing that is listed once for each party becomes one with all of them.
std::vector<Filing> merged(std::vector<Filing> listed) {
    std::vector<Filing> filings;
    std::unordered_map<std::string, std::size_t> places;
    for (auto& filing : listed) {
        const auto [place, isNew] = places.try_emplace(filing.accession, filings.size());
        if (isNew) {
            filings.push_back(std::move(filing));
            continue;
        }
        auto& parties = filings[place->second].parties;
        for (auto& party : filing.parties) {
            if (parties.size() == mostParties) break;
            if (std::ranges::find(parties, party) == parties.end()) parties.push_back(party);
        }
    }
    return filings;
}

/// The filings are in the order of their acceptance, the newest first.
void linkAmendments(std::vector<Filing>& filings) {
    std::map<std::pair<std::string_view, std::string_view>, std::vector<const Filing*>> related;
    for (const auto& filing : filings) {
        if (filing.period && filing.accepted) {
            related[{baseForm(filing), *filing.period}].push_back(&filing);
        }
    }
    for (auto& filing : filings) {
        if (!isAmendment(filing) || !filing.period || !filing.accepted) continue;
        const auto& candidates = related[{baseForm(filing), *filing.period}];
        const auto isNotEarlier = [&](const Filing* candidate) {
            return *candidate->accepted >= *filing.accepted;
        };
        const auto earlier = std::ranges::partition_point(candidates, isNotEarlier);
        const auto original = std::find_if(earlier, candidates.end(), [&](const Filing* candidate) {
            return shareParty(filing, *candidate);
        });
        if (original != candidates.end()) filing.amends = (*original)->accession;
    }
}

FilingsResult listed(std::vector<Filing> filings) {
    filings = merged(std::move(filings));
    std::ranges::sort(filings, [](const Filing& one, const Filing& other) {
        return std::tie(other.accepted, other.accession) < std::tie(one.accepted, one.accession);
    });
    linkAmendments(filings);
    return filings;
}

FilingsResult fromJSON(std::string_view text) {
    try {
        const auto answer = parseJSON(text);
        const auto* const object = answer.if_object();
        if (object == nullptr) return FilingsError::notFilings;
        auto filings = submissionsFilings(*object);
        if (!filings) return FilingsError::notFilings;
        return listed(std::move(*filings));
    } catch (const RecordError&) {
        return FilingsError::malformed;
    }
}

}  // namespace

FilingsResult parseFilings(std::string_view bytes) {
    const auto text =
        trimWhitespaceAndNewlines(bytes.starts_with("\xEF\xBB\xBF") ? bytes.substr(3) : bytes);
    if (text.starts_with('{')) return fromJSON(text);
    if (const auto refusal = refusalInPage(text)) return *refusal;
    if (text.find('<') == std::string_view::npos) return FilingsError::notFilings;
    const auto feed = parseXMLTree(bytes);
    const bool isMeant = text.starts_with("<?xml") || text.starts_with("<feed");
    if (!feed) return isMeant ? FilingsError::malformed : FilingsError::notFilings;
    auto filings = feedFilings(*feed);
    if (!filings) return FilingsError::notFilings;
    return listed(std::move(*filings));
}

}  // namespace kit
