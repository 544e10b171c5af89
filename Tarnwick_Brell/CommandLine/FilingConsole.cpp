#include "Tarnwick_Brell/CommandLine/FilingConsole.h"

#include <algorithm>

#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/Trackers/TrackedFilings.h"

namespace cli {

namespace {

// Ten companies file some thousand documents a year.
constexpr std::size_t kMostFilings = 20'000;

}  // namespace

FilingView readFilings(Session& session, bool isStored) {
    const auto contact = session.defaults().contactAddress();
    if (contact.empty() && !isStored) throw WorkFailed(std::string(app::kNoContactAddress));
    // Without an address only what is stored is shown, whatever address it came with.
    const auto files = app::filingFiles(contact.empty() ? "nobody" : contact);
    std::vector<std::string> names;
    for (const auto& file : files) names.push_back(file.name);
    const auto fileOf = [&](const app::TrackedFiles&, const std::string& name) {
        using File = app::TrackedFile<std::vector<kit::Filing>>;
        return *std::ranges::find(files, name, &File::name);
    };
    const auto view = [&](const auto& readings, app::LocalStore& store) {
        requireSome(readings, isStored);
        return FilingView{fetchStatesOf(readings),
                          app::followedFilings(store.filings().newest(kMostFilings))};
    };
    if (isStored) {
        return view(fetchOrLoadEach<std::vector<kit::Filing>>(session, true, names, fileOf),
                    session.storeForReading());
    }
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        return view(fetchEach<std::vector<kit::Filing>>(session, fetcher, store, names, fileOf),
                    store);
    });
}

}  // namespace cli
