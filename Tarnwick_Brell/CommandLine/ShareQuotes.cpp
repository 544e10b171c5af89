#include "Tarnwick_Brell/CommandLine/ShareQuotes.h"

#include "Tarnwick_Brell/Trackers/TrackedFiles.h"
#include "Tarnwick_Brell/Trackers/TrackerCache.h"

namespace cli {

ShareQuotes::ShareQuotes(Session& session) {
    const app::TrackedFiles files;  // Their names in the cache do not depend on the service.
    app::TrackerCache cache(session.storeForReading());
    for (const auto& row : kit::enumTable<kit::QuoteRange>)
        quotes_.push_back(cache.read(files.quote(app::TrackedFiles::kShare, row.value)));
}

const ShareQuotes::Quote& ShareQuotes::over(kit::QuoteRange range) const {
    return quotes_[static_cast<std::size_t>(range)];
}

const ShareQuotes::Quote* ShareQuotes::newest() const {
    std::vector<const Quote*> all;
    for (const auto& quote : quotes_) all.push_back(&quote);
    return kit::newestOf(all);
}

}  // namespace cli
