#include <fmt/format.h>

#include "NewsroomKit/Newsrooms/NewsroomFile.h"
#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/InputFile.h"
#include "Tarnwick_Brell/CommandLine/NewsroomActions.h"
#include "Tarnwick_Brell/CommandLine/NewsroomText.h"
#include "Tarnwick_Brell/CommandLine/QueryText.h"
#include "Tarnwick_Brell/CommandLine/ShelfNaming.h"

namespace brell {

using desk::NewsroomShelf;

/// One that can't be read goes out as it is stored: another version may know it.
int exportNewsroom(Session& session, const NewsroomOptions& options) {
    const auto shelf = NewsroomShelf::read(session.storeForReading().newsrooms());
    const auto& entry = named(shelf.entries(), options.name, "newsroom");
    session.out().write(entry.value ? newsroom::NewsroomFile::write(*entry.value)
                                    : entry.record + "\n");
    return kDone;
}

int importNewsroom(Session& session, const NewsroomOptions& options) {
    const auto bytes = readInput(options.file, newsroom::NewsroomLimits::kFileBytes);
    auto& store = options.preview ? session.storeForReading() : session.store();
    auto shelf = NewsroomShelf::read(store.newsrooms());
    newsroom::NewsroomSpec spec;
    try {
        spec = desk::takenIn(bytes, shelf);
    } catch (const newsroom::RecordError& error) {
        throw WorkFailed(fmt::format("That is no newsroom that can be taken in: {}.",
                                     printable(error.what())));
    }
    if (!options.preview) write(session, store.newsrooms(), shelf.put(spec));
    if (session.options().json) {
        session.out().line(boost::json::serialize(newsroom::encode(spec)));
    } else {
        session.out().line(fmt::format("{} {}: {}, {}.",
                                       options.preview ? "Would be added:" : "Added",
                                       printable(spec.name), panelsText(spec),
                                       queryText(spec.focus)));
    }
    return kDone;
}

}  // namespace brell
