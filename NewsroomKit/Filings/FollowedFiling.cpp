#include "NewsroomKit/Filings/FollowedFiling.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Filings/FormWords.h"
#include "NewsroomKit/Filings/OwnershipWords.h"
#include "NewsroomKit/Filings/TradeCode.h"
#include "NewsroomKit/Signals/SignalEvent.h"

namespace kit {
namespace {

SignalEvent eventOf(SignalWeight weight) {
    switch (weight) {
        case SignalWeight::major: return SignalEvent::filingMajor;
        case SignalWeight::notable: return SignalEvent::filingNotable;
        case SignalWeight::routine: break;
    }
    return SignalEvent::filingRoutine;
}

SignalEvent eventOf(const FollowedFiling& followed) {
    if (followed.notice) return SignalEvent::saleNotice;
    if (!followed.trades) return eventOf(filingWeight(followed.filing));
    const bool decides = std::ranges::any_of(
        followed.trades->trades, [](const Trade& trade) { return isDecision(trade.code); });
    return decides ? SignalEvent::insiderDecision : SignalEvent::insiderRoutine;
}

std::string titleOf(const FollowedFiling& followed, std::string_view company) {
    if (followed.trades) return fmt::format("{}: {}", company, followed.trades->sentence);
    if (followed.notice) return fmt::format("{}: {}", company, noticeSentence(*followed.notice));
    auto words = filingWords(followed.filing);
    if (followed.release && !followed.release->title.empty())
        words += ": " + followed.release->title;
    return fmt::format("{}: {} (form {}).", company, words, followed.filing.form);
}

std::string itemsInWords(const Filing& filing) {
    std::string text;
    for (const auto& code : filing.items) {
        const auto words = itemWords(code);
        if (words.empty()) continue;
        text += fmt::format("{}{}: {}", text.empty() ? "" : "; ", code, words);
    }
    return text;
}

}  // namespace

bool hasPressExhibit(const Filing& filing) {
    return filing.form.starts_with("8-K") || filing.form.starts_with("6-K");
}

FilingText beginOf(FilingText text) {
    constexpr std::size_t most = 25;
    constexpr std::size_t longest = 240;
    if (text.lines.size() > most) text.lines.resize(most);
    std::erase_if(text.lines, [](const std::string& line) { return line.size() > longest; });
    return text;
}

bool addDetail(Filing& filing, const Filing& listed) {
    const auto before = filing;
    if (!filing.period) filing.period = listed.period;
    if (filing.items.empty()) filing.items = listed.items;
    if (!filing.amends) filing.amends = listed.amends;
    if (!filing.primaryDocument) filing.primaryDocument = listed.primaryDocument;
    if (!filing.documentURL) filing.documentURL = listed.documentURL;
    return filing != before;
}

bool isOfOwnShares(const FollowedFiling& followed) {
    if (followed.trades) return followed.trades->issuer.cik == followed.company;
    if (followed.notice) return followed.notice->issuer.cik == followed.company;
    return true;
}

SignalWeight weightOf(const FollowedFiling& followed) { return signalOf(eventOf(followed)).weight; }

Signal signalOf(const FollowedFiling& followed, Instant now) {
    const auto& filing = followed.filing;
    const auto* const company = filingCompany(followed.company);
    auto signal = signalOf(eventOf(followed));
    signal.id = "filing|" + filing.accession;
    signal.subject =
        company == nullptr ? std::to_string(followed.company) : std::string(company->name);
    signal.title = titleOf(followed, signal.subject);
    signal.detail = itemsInWords(filing);
    signal.link = filing.indexURL;
    signal.happenedAt = filing.accepted;
    signal.seenAt = now;
    signal.evidence = {{"before", nullptr},
                       {"after", filing.form},
                       {"accession", filing.accession},
                       {"filed", filing.filed}};
    if (filing.indexURL) signal.evidence["readAt"] = *filing.indexURL;
    return signal;
}

}  // namespace kit
