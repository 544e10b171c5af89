#include "Tarnwick_Brell/Trackers/TrackedFilings.h"

#include <algorithm>

#include <boost/json.hpp>

#include "NewsroomKit/Filings/FilingForms.h"
#include "NewsroomKit/Filings/FilingsAPI.h"
#include "NewsroomKit/Records/RecordError.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/SettingKey.h"
#include "Tarnwick_Brell/Trackers/FilingCompletion.h"
#include "Tarnwick_Brell/Trackers/FilingRecords.h"

namespace app {

using kit::Filing;
using kit::FilingCompany;
using kit::FilingDocument;
using kit::FilingsAPI;
using kit::FilingText;
using kit::FollowedFiling;
using kit::HTTPClient;
using kit::Instant;

namespace {

using Filings = std::vector<Filing>;
using FilingDocuments = std::vector<FilingDocument>;

const std::string kAddressRefused =
    "The SEC refuses requests with this mail address. It isn't asked again until the setting " +
    std::string(SettingKey::kContactAddress) + " has another one.";

/// A feed is asked for 40 filings of one company; more, or others, are no answer to that.
bool isFeedOf(std::int64_t company, const Filings& filings) {
    constexpr std::size_t most = 100;
    return filings.size() <= most && std::ranges::all_of(filings, [&](const Filing& filing) {
               return std::ranges::any_of(filing.parties, [&](const kit::FilingParty& party) {
                   return party.cik == company;
               });
           });
}

TrackedFile<Filings> filingFile(const FilingCompany& company, const std::string& contact) {
    const auto cik = company.cik;
    return {.tracker = Tracker::filings,
            .name = filingFileName(cik),
            .title = "The filings of " + std::string(company.name),
            .address = FilingsAPI::feedAddress(cik),
            .fetch = [cik, contact](
                         HTTPClient& http) { return FilingsAPI{http, contact}.companyFeed(cik); },
            .parse = FilingsAPI::parse,
            .emptyAnswer = EmptyAnswer::refusedAfterItems,
            .isEmpty = [](const Filings& filings) { return filings.empty(); },
            .isRequested = [cik](const Filings& filings) { return isFeedOf(cik, filings); },
            .mismatchText = "The SEC sent another list than that of this company.",
            .credential = kit::storyID(contact),
            .refusedText = kAddressRefused,
            .record = [cik](LocalStore& store, const auto&, const auto& filings,
                            Instant now) { recordFilingFeed(store, cik, filings, now); },
            .complete =
                [cik, contact](LocalStore& store, HTTPClient& http, kit::Clock clock) {
                    return completeFilings(store, FilingsAPI{http, contact}, cik, std::move(clock));
                }};
}

FilingDocuments parsedDocuments(std::string_view page) {
    auto documents = kit::parseFilingDocuments(page);
    if (!documents) throw kit::RecordError("", std::string(description(documents.error())));
    return std::move(documents).value();
}

FilingText storedText(std::string_view text) {
    return kit::decode<FilingText>(kit::parseJSON(text));
}

boost::asio::awaitable<kit::FetchedFile<FilingDocuments>> fetchedDocuments(HTTPClient& http,
                                                                           std::string contact,
                                                                           std::string address) {
    const FilingsAPI api{http, std::move(contact)};
    auto page = co_await api.document(std::move(address));
    if (!page.body) {
        co_return kit::FetchedFile<FilingDocuments>{.value = page.body.error(),
                                                    .retryAfter = page.record.retryAfter};
    }
    auto body = std::move(page.body).value();
    auto documents = parsedDocuments(body);
    co_return kit::FetchedFile<FilingDocuments>{.value = std::move(documents),
                                                .body = std::move(body)};
}

/// The text is stored instead of the document, which is many times as large.
boost::asio::awaitable<kit::FetchedFile<FilingText>> fetchedText(HTTPClient& http,
                                                                 std::string contact,
                                                                 std::string address) {
    const FilingsAPI api{http, std::move(contact)};
    auto document = co_await api.document(address);
    if (!document.body) {
        co_return kit::FetchedFile<FilingText>{.value = document.body.error(),
                                               .retryAfter = document.record.retryAfter};
    }
    auto text = kit::readFilingText(document.body.value(), address);
    auto body = boost::json::serialize(kit::encode(text));
    co_return kit::FetchedFile<FilingText>{.value = std::move(text), .body = std::move(body)};
}

/// Changes what is known of a filing, which may have grown since `followed` was read.
template <class Change>
void changeFiling(LocalStore& store, const FollowedFiling& followed, Change change) {
    for (auto& known : filingsOf(store, followed.company)) {
        if (known.filing.accession != followed.filing.accession) continue;
        change(known);
        putFiling(store, known);
    }
}

}  // namespace

std::vector<TrackedFile<Filings>> filingFiles(const std::string& contact) {
    std::vector<TrackedFile<Filings>> files;
    if (contact.empty()) return files;
    for (const auto& company : kit::filingCompanies) files.push_back(filingFile(company, contact));
    return files;
}

std::string filingListAddress() { return FilingsAPI::listAddress(kit::appleCIK); }

TrackedFile<FilingDocuments> filingPageFile(const FollowedFiling& followed,
                                            const std::string& contact) {
    const auto& accession = followed.filing.accession;
    const auto address = kit::indexAddress(followed.company, accession);
    return {.tracker = Tracker::filings,
            .name = "filingPage/" + accession,
            .title = "The documents of filing " + accession,
            .address = address,
            .fetch = [contact, address](
                         HTTPClient& http) { return fetchedDocuments(http, contact, address); },
            .parse = parsedDocuments,
            .credential = kit::storyID(contact),
            .refusedText = kAddressRefused,
            .record =
                [followed](LocalStore& store, const auto&, const auto& documents, Instant) {
                    changeFiling(store, followed, [&](FollowedFiling& known) {
                        known.documents = documents;
                        known.awaitsDocuments =
                            known.awaitsDocuments && isPressExhibit(documents.front());
                    });
                }};
}

TrackedFile<FilingText> filingTextFile(const FollowedFiling& followed,
                                       const FilingDocument& document, const std::string& contact) {
    return {.tracker = Tracker::filings,
            .name = "filingText/" + document.url,
            .title = document.type + " of filing " + followed.filing.accession,
            .address = document.url,
            .fetch = [contact, address = document.url](
                         HTTPClient& http) { return fetchedText(http, contact, address); },
            .parse = storedText,
            .credential = kit::storyID(contact),
            .refusedText = kAddressRefused,
            .record =
                [followed, document](LocalStore& store, const auto&, const auto& text, Instant) {
                    if (!isPressExhibit(document)) return;
                    changeFiling(store, followed, [&](FollowedFiling& known) {
                        known.awaitsDocuments = false;
                        if (!known.release || known.release->url == text.url)
                            known.release = beginOf(text);
                    });
                }};
}

}  // namespace app
