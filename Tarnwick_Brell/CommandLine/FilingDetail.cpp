#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Filings/OwnershipWords.h"
#include "NewsroomKit/Panels/FilingsContent.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/FilingConsole.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Presentation/FilingText.h"
#include "Tarnwick_Brell/Trackers/TrackedFilings.h"

namespace cli {

namespace {

using kit::FilingDocument;
using kit::FilingRecord;
using kit::FilingText;
using kit::FollowedFiling;

constexpr std::size_t kWidestFiling = 88;

struct ReadFiling {
    FilingRecord record;
    kit::CachedValue<FilingText> text;
    std::optional<std::string> failure;
};

const FilingDocument* documentOf(const std::vector<FilingDocument>& documents,
                                 const std::string& type) {
    const auto found = std::ranges::find_if(documents, [&](const FilingDocument& document) {
        return type.empty() || kit::equalIgnoringCase(document.type, type);
    });
    return found == documents.end() ? nullptr : &*found;
}

FollowedFiling requiredFiling(const FilingView& view, const std::string& accession) {
    for (const auto& followed : view.filings) {
        if (followed.filing.accession == accession) return followed;
    }
    throw WorkFailed("No filing with the number " + accession +
                     " has been seen. brell filings --json shows the numbers.");
}

/// `get` fetches a file, or only loads it.
template <class Get>
ReadFiling readFiling(app::LocalStore& store, const FilingDetailOptions& options,
                      const std::string& contact, const Get& get) {
    const auto followed = requiredFiling(storedFilings(store), options.accession);
    ReadFiling read;
    const auto page = get(app::filingPageFile(followed, contact));
    read.failure = page.error;
    const auto documents = page.value.value_or(followed.documents);
    if (const auto* const document = documentOf(documents, options.document)) {
        read.text = get(app::filingTextFile(followed, *document, contact));
        if (read.text.error) read.failure = read.text.error;
    } else if (!options.document.empty() && !documents.empty()) {
        throw WorkFailed("The filing has no document " + options.document + ".");
    }
    const auto view = storedFilings(store);
    read.record = kit::filingRecord(view.filings, options.accession, view.releases).value();
    return read;
}

void printRelated(Output& out, std::string_view relation, const kit::RelatedFiling& related) {
    out.line(fmt::format("{} {} {}{}", relation, printable(related.form),
                         printable(related.accession),
                         related.filed.empty() ? "" : " dated " + printable(related.filed)));
}

void printTrades(Output& out, const FilingRecord& record) {
    for (const auto& noted : record.trades) {
        const auto& trade = noted.trade;
        auto line =
            fmt::format("{}  {} {}", trade.date.value_or("no date"), noted.verb,
                        trade.shares ? kit::amountInWords(*trade.shares) : "an unstated number");
        if (trade.price) line += " at " + priceText(*trade.price);
        if (!trade.price && !trade.notes.empty()) line += " at a price in the note";
        if (trade.after) line += ", " + kit::amountInWords(*trade.after) + " held after";
        if (trade.nature) line += " (" + *trade.nature + ")";
        if (trade.dateAsFiled) line += ", dated " + *trade.dateAsFiled + " as filed";
        out.line(printable(line));
        for (const auto& note : noted.notes)
            out.line(out.dim(wrapped("            " + printable(note.name + ": " + note.text),
                                     kWidestFiling, "            ")));
    }
}

void printRecord(Output& out, const FilingRecord& record) {
    const auto& row = record.row;
    out.line(out.bold(printable(row.company + ", form " + row.filing.form)));
    out.line(wrapped(printable(app::filingWordsText(row).toStdString()), kWidestFiling, ""));
    out.line(printable(app::filingTimesText(row).toStdString()));
    for (const auto& [code, words] : row.items) out.line(printable("Item " + code + ": " + words));
    if (record.amends) printRelated(out, "Amends", *record.amends);
    for (const auto& other : record.amendedBy) printRelated(out, "Amended by", other);
    printTrades(out, record);
    if (row.release)
        out.line("Also sent as a press release: " +
                 printable(row.release->link.value_or(row.release->title)));
    for (const auto& document : record.documents)
        out.line(out.dim(printable(document.type + "  " + document.url)));
    if (row.filing.indexURL)
        out.line(out.dim(printable(*row.filing.indexURL) + " opens at the SEC"));
}

boost::json::array notesArray(const std::vector<kit::FormNote>& notes) {
    boost::json::array list;
    for (const auto& note : notes) list.push_back({{"name", note.name}, {"text", note.text}});
    return list;
}

boost::json::object detailObject(const ReadFiling& read) {
    const auto& record = read.record;
    boost::json::object object{{"filing", kit::encode(record.row.filing)},
                               {"company", record.row.company},
                               {"words", record.row.words},
                               {"headline", record.row.headline},
                               {"documents", kit::encode(record.documents)}};
    if (record.amends) object["amends"] = record.amends->accession;
    boost::json::array amendedBy, trades;
    for (const auto& other : record.amendedBy) amendedBy.emplace_back(other.accession);
    for (const auto& noted : record.trades) {
        auto trade = kit::encode(noted.trade).get_object();
        trade["notes"] = notesArray(noted.notes);
        trades.push_back(std::move(trade));
    }
    object["amendedBy"] = std::move(amendedBy);
    object["trades"] = std::move(trades);
    if (record.notice) object["notice"] = kit::encode(*record.notice);
    if (record.row.release) object["release"] = kit::encode(*record.row.release);
    if (read.text.value) object["text"] = kit::encode(*read.text.value);
    return object;
}

ReadFiling fetchedOrStored(Session& session, const FilingDetailOptions& options) {
    if (options.stored) {
        auto& store = session.storeForReading();
        return readFiling(store, options, "nobody",
                          [&](const auto& file) { return app::TrackerCache(store).read(file); });
    }
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    const auto contact = requiredContact(session);
    return session.storing([&](app::LocalStore& store) {
        app::TrackerFetcher trackerFetcher(store, fetcher.http(), &currentInstant);
        return readFiling(store, options, contact, [&](const auto& file) {
            return fetcher.await(trackerFetcher.fetch(file));
        });
    });
}

}  // namespace

int showFiling(Session& session, const FilingDetailOptions& options) {
    const auto read = fetchedOrStored(session, options);
    auto& out = session.out();
    if (session.options().json) {
        out.line(boost::json::serialize(detailObject(read)));
    } else {
        printRecord(out, read.record);
        if (read.text.value) {
            out.line("");
            for (const auto& line : read.text.value->lines)
                out.line(wrapped(printable(line), std::min(out.width(), kWidestFiling), ""));
        }
    }
    if (read.failure && !options.stored) throw WorkFailed(*read.failure);
    return kDone;
}

}  // namespace cli
