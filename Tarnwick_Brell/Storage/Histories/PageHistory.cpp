#include "Tarnwick_Brell/Storage/Histories/PageHistory.h"

#include <chrono>

#include "NewsroomKit/Pages/PageReader.h"
#include "NewsroomKit/Records/Codec.h"
#include "Tarnwick_Brell/Storage/SQLite/Compression.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

namespace {

using kit::PageBlock;
using kit::PageRevision;

constexpr std::int64_t kMostRevisions = 200;
constexpr std::int64_t kLeastRevisions = 2;
constexpr std::chrono::years kRevisionsKept{2};

template <class T>
std::string packed(const T& value) {
    return compressed(boost::json::serialize(kit::encode(value)));
}

/// Nothing when another version wrote it.
template <class T>
std::optional<T> unpacked(std::string_view bytes) {
    if (bytes.empty()) return std::nullopt;
    try {
        return kit::decode<T>(kit::parseJSON(uncompressed(bytes)));
    } catch (const kit::RecordError&) {
        return std::nullopt;
    }
}

std::optional<PageRevision> revisionIn(const Statement& row) {
    try {
        auto revision = kit::decode<PageRevision>(kit::parseJSON(row.view(1)));
        revision.number = row.number(0);
        return revision;
    } catch (const kit::RecordError&) {
        return std::nullopt;
    }
}

}  // namespace

PageLooks PageHistory::looks(std::string_view address) {
    Statement row(database_, "SELECT lookedAt, nextLook FROM pageWatches WHERE address = ?");
    row.bind(0, address);
    if (!row.step()) return {};
    return {instantOf(row.number(0)), instantOf(row.number(1))};
}

std::optional<kit::PageWatchState> PageHistory::state(std::string_view address) {
    Statement row(database_, "SELECT state FROM pageWatches WHERE address = ?");
    row.bind(0, address);
    if (!row.step()) return std::nullopt;
    return unpacked<kit::PageWatchState>(row.view(0));
}

kit::PageWatch PageHistory::watch(std::string_view address) {
    kit::PageWatch watch;
    {
        Statement row(database_,
                      "SELECT state, blocks, candidate FROM pageWatches WHERE address = ?");
        row.bind(0, address);
        if (!row.step()) return watch;
        auto state = unpacked<kit::PageWatchState>(row.view(0));
        auto blocks = unpacked<std::vector<PageBlock>>(row.view(1));
        // The next look is the first one then.
        if (!state || !blocks) return watch;
        watch.state = std::move(*state);
        watch.blocks = std::move(*blocks);
        watch.candidate =
            unpacked<std::vector<PageBlock>>(row.view(2)).value_or(std::vector<PageBlock>());
    }
    if (watch.state.rules != 0 && watch.state.rules != kit::pageRulesVersion)
        applyRulesTo(watch, address);
    return watch;
}

void PageHistory::applyRulesTo(kit::PageWatch& watch, std::string_view address) {
    Statement row(database_,
                  "SELECT number, record, html FROM pageRevisions WHERE address = ? "
                  "ORDER BY number DESC LIMIT 1");
    row.bind(0, address);
    if (!row.step()) return;
    const auto revision = revisionIn(row);
    const auto html = uncompressed(row.view(2));
    if (!revision || revision->key != watch.state.key || html.empty()) return;
    kit::applyRules(watch,
                    {.bytes = html, .url = revision->url, .contentType = revision->contentType});
}

void PageHistory::storeState(std::string_view address, const kit::PageWatchState& state,
                             PageLooks looks) {
    const auto record = packed(state);
    Statement put(database_,
                  "INSERT INTO pageWatches (address, state, blocks, candidate, lookedAt, nextLook) "
                  "VALUES (?1, ?2, x'', x'', ?3, ?4) ON CONFLICT (address) DO UPDATE SET "
                  "state = ?2, lookedAt = ?3, nextLook = ?4");
    put.bind(0, address).bindBytes(1, record);
    put.bind(2, microseconds(looks.last.value_or(kit::Instant())));
    put.bind(3, microseconds(looks.next.value_or(kit::Instant()))).run();
}

void PageHistory::storeTexts(std::string_view address, const kit::PageWatch& watch) {
    const auto blocks = packed(watch.blocks);
    const auto candidate = packed(watch.candidate);
    Statement put(database_, "UPDATE pageWatches SET blocks = ?, candidate = ? WHERE address = ?");
    put.bindBytes(0, blocks).bindBytes(1, candidate).bind(2, address).run();
}

void PageHistory::add(const PageRevision& revision, const std::vector<PageBlock>& blocks,
                      std::string_view html) {
    const auto record = boost::json::serialize(kit::encode(revision));
    const auto texts = packed(blocks);
    const auto source = compressed(html);
    Statement put(database_,
                  "INSERT INTO pageRevisions (address, seenAt, isChange, record, blocks, html) "
                  "VALUES (?, ?, ?, ?, ?, ?)");
    put.bind(0, revision.address).bind(1, microseconds(revision.seenAt));
    put.bind(2, std::int64_t{revision.kind != PageRevision::Kind::baseline}).bind(3, record);
    put.bindBytes(4, texts).bindBytes(5, source).run();
    dropOld(revision.address, revision.confirmedAt);
}

void PageHistory::dropOld(std::string_view address, kit::Instant now) {
    Statement drop(database_,
                   "DELETE FROM pageRevisions WHERE address = ?1 AND (number NOT IN (SELECT number "
                   "FROM pageRevisions WHERE address = ?1 ORDER BY number DESC LIMIT ?2) OR "
                   "(seenAt < ?3 AND number NOT IN (SELECT number FROM pageRevisions "
                   "WHERE address = ?1 ORDER BY number DESC LIMIT ?4)))");
    const auto oldest = now - std::chrono::duration_cast<std::chrono::seconds>(kRevisionsKept);
    drop.bind(0, address).bind(1, kMostRevisions).bind(2, microseconds(oldest));
    drop.bind(3, kLeastRevisions).run();
}

std::vector<PageRevision> PageHistory::revisions(std::string_view address, std::size_t most) {
    Statement rows(database_,
                   "SELECT number, record FROM pageRevisions WHERE address = ? "
                   "ORDER BY number DESC LIMIT ?");
    rows.bind(0, address).bind(1, static_cast<std::int64_t>(most));
    std::vector<PageRevision> revisions;
    while (rows.step()) {
        if (auto revision = revisionIn(rows)) revisions.push_back(std::move(*revision));
    }
    return revisions;
}

std::optional<PageRevision> PageHistory::lastChange(std::string_view address) {
    Statement row(database_,
                  "SELECT number, record FROM pageRevisions WHERE address = ? AND isChange = 1 "
                  "ORDER BY number DESC LIMIT 1");
    row.bind(0, address);
    if (!row.step()) return std::nullopt;
    return revisionIn(row);
}

std::vector<PageBlock> PageHistory::blocks(std::int64_t revision) {
    Statement row(database_, "SELECT blocks FROM pageRevisions WHERE number = ?");
    row.bind(0, revision);
    if (!row.step()) return {};
    return unpacked<std::vector<PageBlock>>(row.view(0)).value_or(std::vector<PageBlock>());
}

}  // namespace app
