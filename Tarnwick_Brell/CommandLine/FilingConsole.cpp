#include "Tarnwick_Brell/CommandLine/FilingConsole.h"

#include <algorithm>
#include <set>

#include "NewsroomKit/Panels/FilingsContent.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/Trackers/FilingRecords.h"
#include "Tarnwick_Brell/Trackers/TrackedFilings.h"
#include "Tarnwick_Brell/Trackers/TrackedRecords.h"

namespace cli {

namespace {

using Filings = std::vector<kit::Filing>;
using FilingFile = app::TrackedFile<Filings>;

std::vector<FilingFile> filesNamed(const std::string& company, const std::string& contact) {
    auto files = app::filingFiles(contact);
    std::erase_if(files, [&](const FilingFile& file) {
        const auto cik = file.name.substr(app::kFilingPrefix.size());
        return !kit::isCompanyNamed(std::stoll(cik), company);
    });
    if (files.empty())
        throw WorkFailed("No company whose filings are followed is named \"" + company + "\".");
    return files;
}

/// What the SEC says to all companies' feeds is said once.
std::vector<FetchState> statesOf(const std::vector<FilingFile>& files,
                                 const NamedReadings<Filings>& readings) {
    auto states = fetchStatesOf(readings);
    std::set<std::string> said;
    for (std::size_t at = 0; at < states.size(); ++at) {
        auto& error = states[at].error;
        if (!error) continue;
        const auto head = files[at].title + ": ";
        const auto sentence = error->starts_with(head) ? error->substr(head.size()) : *error;
        if (!said.insert(sentence).second) error.reset();
    }
    return states;
}

FilingView viewOf(app::LocalStore& store, std::vector<FetchState> states) {
    auto view = storedFilings(store);
    view.states = std::move(states);
    return view;
}

}  // namespace

FilingView storedFilings(app::LocalStore& store) {
    // Ten companies file some thousand documents a year.
    constexpr std::size_t mostFilings = 20'000;
    constexpr std::size_t mostReleases = 2'000;
    FilingView view;
    view.filings = app::followedFilings(store.filings().newest(mostFilings));
    for (auto& seen : app::seenReleases(store.pressReleases().newest(mostReleases)))
        view.releases.push_back(std::move(seen.release));
    return view;
}

std::string requiredContact(Session& session) {
    auto contact = session.defaults().contactAddress();
    if (contact.empty()) throw WorkFailed(std::string(app::kNoContactAddress));
    return contact;
}

FilingView readFilings(Session& session, bool isStored, const std::string& company) {
    // The demonstration's network comes first, and with it its mail address.
    const auto network = isStored ? kit::CurlTransport::Options() : session.network();
    // What is stored is shown whatever address it came with.
    const auto files = filesNamed(company, isStored ? "nobody" : requiredContact(session));
    std::vector<std::string> names;
    for (const auto& file : files) names.push_back(file.name);
    const auto fileOf = [&](const app::TrackedFiles&, const std::string& name) {
        return *std::ranges::find(files, name, &FilingFile::name);
    };
    if (isStored) {
        const auto readings = fetchOrLoadEach<Filings>(session, true, names, fileOf);
        requireSome(readings, true);
        return viewOf(session.storeForReading(), statesOf(files, readings));
    }
    BlockingFetcher fetcher(network, kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        const auto readings = fetchEach<Filings>(session, fetcher, store, names, fileOf);
        requireSome(readings, false);
        return viewOf(store, statesOf(files, readings));
    });
}

}  // namespace cli
