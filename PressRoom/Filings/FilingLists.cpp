#include "PressRoom/Filings/FilingLists.h"

#include <algorithm>
#include <array>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "PressRoom/Filings/FilingDates.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using std::chrono::sys_seconds;

constexpr std::size_t kFeedEntries = 40;
constexpr std::size_t kLatestEntries = 100;
constexpr std::chrono::minutes kListLags{45};

std::string folderAddress(std::int64_t cik, const std::string& accession) {
    auto digits = accession;
    std::erase(digits, '-');
    return fmt::format("https://www.sec.gov/Archives/edgar/data/{}/{}", cik, digits);
}

std::string itemsText(const WorldFiling& filing) {
    if (!filing.items || filing.items->empty()) return {};
    std::string text = filing.items->size() == 1 ? "item " : "items ";
    for (std::size_t at = 0; at < filing.items->size(); ++at) {
        if (at > 0) text += at + 1 == filing.items->size() ? " and " : ", ";
        text += (*filing.items)[at];
    }
    return text;
}

std::string entryOf(const WorldFiler& filer, const WorldFiling& filing,
                    const std::string& accession, sys_seconds anchor) {
    const auto index =
        fmt::format("{}/{}-index.htm", folderAddress(filer.cik, accession), accession);
    const auto filed = filingDay(filing, anchor);
    const auto items = itemsText(filing);
    const auto summary =
        fmt::format(" <b>Filed:</b> {} <b>AccNo:</b> {} <b>Size:</b> 31 KB", filed, accession);
    return fmt::format(
        "<entry><category label=\"form type\" scheme=\"https://www.sec.gov/\" term=\"{}\" />"
        "<content type=\"text/xml\">{}{}{}{}{}{}<size>31 KB</size></content>{}"
        "<link href=\"{}\" rel=\"alternate\" type=\"text/html\" />"
        "<summary type=\"html\">{}</summary>{}{}</entry>\n",
        escaped(filing.form), element("accession-number", accession),
        filing.form.ends_with("/A") ? "<amend>[Amend]</amend>" : "", element("filing-date", filed),
        element("filing-href", index), element("filing-type", filing.form),
        items.empty() ? std::string() : element("items-desc", items),
        element("id", "urn:tag:sec.gov,2008:accession-number=" + accession), escaped(index),
        escaped(summary), element("title", filing.form + "  - Filing"),
        element("updated", newYorkTime(acceptanceOf(filing, anchor))));
}

std::string feedHead(std::string_view title) {
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
           "<feed xmlns=\"http://www.w3.org/2005/Atom\">\n<author><email>webmaster@sec.gov</email>"
           "<name>Webmaster</name></author>\n" +
           element("title", title) + "\n";
}

std::string partyEntry(const WorldFiling& filing, const std::string& accession, std::int64_t cik,
                       std::string_view name, std::string_view role, sys_seconds anchor) {
    const auto index = fmt::format("{}/{}-index.htm", folderAddress(cik, accession), accession);
    const auto summary = fmt::format(" <b>Filed:</b> {} <b>AccNo:</b> {} <b>Size:</b> 10 KB",
                                     filingDay(filing, anchor), accession);
    return fmt::format(
        "<entry>{}<link rel=\"alternate\" type=\"text/html\" href=\"{}\"/>"
        "<summary type=\"html\">{}</summary>{}"
        "<category scheme=\"https://www.sec.gov/\" label=\"form type\" term=\"{}\"/>{}</entry>\n",
        element("title", fmt::format("{} - {} ({:010}) ({})", filing.form, name, cik, role)),
        escaped(index), escaped(summary),
        element("updated", newYorkTime(acceptanceOf(filing, anchor))), escaped(filing.form),
        element("id", "urn:tag:sec.gov,2008:accession-number=" + accession));
}

std::string partyEntries(const WorldFiler& filer, const WorldFiling& filing, sys_seconds anchor) {
    const auto accession = accessionOf(filer, filing, anchor);
    std::string entries;
    const auto add = [&](std::int64_t cik, std::string_view name, std::string_view role) {
        entries += partyEntry(filing, accession, cik, name, role, anchor);
    };
    if (filing.insiders) {
        for (const auto& owner : filing.insiders->owners) add(owner.cik, owner.name, "Reporting");
        add(filer.cik, filer.name, "Issuer");
    } else if (filing.notice) {
        add(filing.notice->cik, filing.notice->person, "Reporting");
        add(filer.cik, filer.name, "Subject");
    } else {
        add(filer.cik, filer.name, "Filer");
    }
    return entries;
}

std::string primaryDocumentOf(const WorldFiling& filing) {
    // The folder is that of a page made of the form, which itself lies one higher.
    if (filing.insiders) return "xslF345X06/form4.xml";
    if (filing.notice) return "xsl144X01/primary_doc.xml";
    return filing.documents && !filing.documents->empty() ? filing.documents->front().file : "";
}

std::string codesOf(const WorldFiling& filing) {
    std::string codes;
    for (const auto& item : filing.items.value_or(std::vector<std::string>()))
        codes += (codes.empty() ? "" : ",") + item;
    return codes;
}

}  // namespace

std::vector<ListedFiling> shownFilings(const WorldFiler& filer, sys_seconds anchor,
                                       sys_seconds now) {
    std::vector<ListedFiling> shown;
    for (const auto& filing : filer.filings) {
        if (isShown(filing, anchor, now)) shown.emplace_back(&filer, &filing);
    }
    std::ranges::stable_sort(shown, {},
                             [](const ListedFiling& listed) { return listed.second->minutesAgo; });
    return shown;
}

std::string filerFeed(const WorldFiler& filer, sys_seconds anchor, sys_seconds now,
                      std::size_t further) {
    auto feed = feedHead(fmt::format("{}  ({:010})", filer.name, filer.cik));
    feed += "<company-info>" + element("cik", fmt::format("{:010}", filer.cik)) +
            element("conformed-name", filer.name) + "</company-info>\n";
    auto shown = shownFilings(filer, anchor, now);
    if (shown.size() > kFeedEntries) shown.resize(kFeedEntries);
    for (const auto& [of, filing] : shown)
        feed += entryOf(filer, *filing, accessionOf(filer, *filing, anchor), anchor);
    const WorldFiling old{.form = "424B2", .minutesAgo = 900'000};
    for (std::size_t count = 0; count < further; ++count)
        feed += entryOf(filer, old, fmt::format("0009999999-24-{:06}", count), anchor);
    return feed + "</feed>\n";
}

std::string submissionsList(const WorldFiler& filer, sys_seconds anchor, sys_seconds now) {
    constexpr std::array names{
        "accessionNumber", "filingDate",      "reportDate", "form",
        "items",           "primaryDocument", "act",        "acceptanceDateTime"};
    json::object columns;
    for (const auto* name : names) columns[name] = json::array();
    json::array sizes;
    for (const auto& [of, filing] : shownFilings(filer, anchor, now - kListLags)) {
        const auto accepted = acceptanceOf(*filing, anchor);
        // True UTC for Apple; for other companies New York's clocks with the letter of UTC.
        const auto time =
            filer.cik == 320193 ? isoDate(accepted, "") : newYorkTime(accepted).substr(0, 19);
        const std::array<std::string, names.size()> row{accessionOf(filer, *filing, anchor),
                                                        filingDay(*filing, anchor),
                                                        periodOf(*filing, anchor).value_or(""),
                                                        filing->form,
                                                        codesOf(*filing),
                                                        primaryDocumentOf(*filing),
                                                        "",
                                                        time + ".000Z"};
        for (std::size_t at = 0; at < names.size(); ++at)
            columns[names[at]].as_array().emplace_back(row[at]);
        sizes.emplace_back(31'000);
    }
    columns["size"] = std::move(sizes);
    return json::serialize(json::object{
        {"cik", fmt::format("{:010}", filer.cik)},
        {"entityType", "operating"},
        {"name", filer.name},
        {"tickers", json::array{filer.symbol}},
        {"exchanges", json::array{"Nasdaq"}},
        {"filings", json::object{{"recent", std::move(columns)}, {"files", json::array()}}}});
}

std::string latestFeed(const WorldFilings& world, sys_seconds anchor, sys_seconds now) {
    std::vector<ListedFiling> shown;
    for (const auto& filer : world.filers) {
        const auto some = shownFilings(filer, anchor, now);
        shown.insert(shown.end(), some.begin(), some.end());
    }
    std::ranges::stable_sort(shown, {},
                             [](const ListedFiling& listed) { return listed.second->minutesAgo; });
    if (shown.size() > kLatestEntries) shown.resize(kLatestEntries);
    auto feed = feedHead("Latest Filings - " + newYorkTime(now));
    for (const auto& [filer, filing] : shown) feed += partyEntries(*filer, *filing, anchor);
    return feed + "</feed>\n";
}

}  // namespace pressroom
