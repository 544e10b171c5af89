#include "Tarnwick_Brell/Storage/Tables/StoryTable.h"

#include <limits>

#include <fmt/format.h>

#include "NewsroomKit/Ingestion/CreditExtraction.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/ArticleCredits.h"
#include "Tarnwick_Brell/Storage/Tables/CorrectionTable.h"
#include "Tarnwick_Brell/Storage/Tables/PendingMarks.h"
#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"

namespace app {

namespace {

constexpr std::string_view kSelection =
    "SELECT s.id, s.link, s.title, s.summary, s.author, s.publishedAt, s.imageURL, s.sourceID, "
    "s.sourceName, s.destinationName, s.isAppleSource, s.kind, s.sourcing, s.wordpressID, "
    "s.articleLink, s.credits, s.firstSeen, s.arrival, s.number, m.readAt, m.savedAt "
    "FROM stories s LEFT JOIN marks m ON m.number = s.number ";

constexpr std::string_view kUnsaved =
    "number NOT IN (SELECT number FROM marks WHERE savedAt IS NOT NULL)";

template <class E>
E enumAt(const Statement& row, int column, E fallback) {
    return kit::enumFromRaw<E>(row.view(column)).value_or(fallback);
}

/// `credits` holds the corrected ones while the view is in use.
void correct(StoryView& view, const kit::CorrectionOverlay& overlay, std::string& credits) {
    auto story = view.stored().story;
    overlay.applyTo(story);
    view.kind = story.kind;
    view.sourcing = story.sourcing;
    credits = story.credits.empty() ? "" : boost::json::serialize(kit::encode(story.credits));
    view.credits = credits;
}

std::vector<std::int64_t> numbers(Statement& statement) {
    std::vector<std::int64_t> all;
    while (statement.step()) all.push_back(statement.number(0));
    return all;
}

}  // namespace

std::string_view StoryTable::selection() { return kSelection; }

StoryView StoryTable::view(const Statement& row) {
    StoryView story;
    story.id = row.view(0);
    story.link = row.view(1);
    story.title = row.view(2);
    story.summary = row.view(3);
    story.author = row.optionalView(4);
    story.publishedAt = instantOf(row.number(5));
    story.imageURL = row.optionalView(6);
    story.sourceID = row.view(7);
    story.sourceName = row.view(8);
    story.destinationName = row.optionalView(9);
    story.isAppleSource = row.number(10) != 0;
    story.kind = enumAt(row, 11, kit::StoryKind::coverage);
    story.sourcing = enumAt(row, 12, kit::Sourcing::unlabeled);
    story.wordpressID = row.optionalNumber(13);
    story.articleLink = row.optionalView(14);
    if (const auto credits = row.view(15); credits != "[]") story.credits = credits;
    story.firstSeen = instantOf(row.number(16));
    story.arrival = enumAt(row, 17, Arrival::fresh);
    story.number = row.number(18);
    story.readAt = instantOf(row.optionalNumber(19));
    story.savedAt = instantOf(row.optionalNumber(20));
    return story;
}

StoredStory StoryTable::read(const Statement& row) {
    auto stored = view(row).stored();
    corrections_.overlay()->applyTo(stored.story);
    return stored;
}

void StoryTable::eachInWireOrder(std::optional<kit::Instant> since, const Visitor& visit) {
    eachViewInWireOrder(since, [&](const StoryView& story) { return visit(story.stored()); });
}

void StoryTable::eachViewInWireOrder(std::optional<kit::Instant> since,
                                     const std::function<bool(const StoryView&)>& visit) {
    const ReadOnce once(database_);
    Statement rows(database_,
                   fmt::format("{} WHERE s.number >= ? ORDER BY s.number DESC", kSelection));
    rows.bind(0, since ? firstStoryNumber(*since) : std::numeric_limits<std::int64_t>::min());
    const auto overlay = corrections_.overlay();
    std::string credits;
    while (rows.step()) {
        auto story = view(rows);
        if (overlay->changes(story.id)) correct(story, *overlay, credits);
        if (!visit(story)) break;
    }
}

void StoryTable::eachChangedAfter(std::int64_t stamp, const Visitor& visit) {
    Statement rows(database_,
                   fmt::format("{} WHERE s.number IN (SELECT number FROM stories WHERE stamp > ?1 "
                               "UNION SELECT number FROM marks WHERE stamp > ?1)",
                               kSelection));
    rows.bind(0, stamp);
    while (rows.step()) {
        if (!visit(read(rows))) break;
    }
}

std::vector<StoredStory> StoryTable::findByID(std::string_view prefix, std::size_t limit) {
    // Ids are hexadecimal, so "g" lies behind everything that the prefix begins.
    Statement rows(
        database_,
        fmt::format("{} WHERE s.id >= ?1 AND s.id < ?1 || 'g' ORDER BY s.id LIMIT ?2", kSelection));
    rows.bind(0, prefix).bind(1, static_cast<std::int64_t>(limit));
    std::vector<StoredStory> found;
    while (rows.step()) {
        found.push_back(read(rows));
        if (found.back().story.id == prefix) break;
    }
    return found;
}

std::optional<StoredStory> StoryTable::findByNumber(std::int64_t number) {
    Statement row(database_, fmt::format("{} WHERE s.number = ?", kSelection));
    row.bind(0, number);
    return row.step() ? std::optional(read(row)) : std::nullopt;
}

std::optional<StoredStory> StoryTable::uncorrectedIn(Database& database, std::int64_t number) {
    Statement row(database, fmt::format("{} WHERE s.number = ?", kSelection));
    row.bind(0, number);
    return row.step() ? std::optional(view(row).stored()) : std::nullopt;
}

std::vector<EarlierWording> StoryTable::earlierWordings(std::int64_t number) {
    Statement rows(database_,
                   "SELECT w.title, w.replacedAt FROM wordings w JOIN stories s USING (number) "
                   "WHERE w.number = ? AND w.title <> s.title ORDER BY w.replacedAt");
    rows.bind(0, number);
    std::vector<EarlierWording> wordings;
    while (rows.step()) wordings.push_back({rows.text(0), instantOf(rows.number(1))});
    return wordings;
}

std::vector<std::string> StoryTable::linksOfHeadline(std::string_view title, kit::Instant around,
                                                     kit::Instant::duration span) {
    Statement rows(database_,
                   "SELECT coalesce(articleLink, link) FROM stories WHERE titleKey = ?1 AND "
                   "publishedAt BETWEEN ?2 AND ?3 ORDER BY number LIMIT 20");
    rows.bind(0, titleKey(title)).bind(1, microseconds(around - span));
    rows.bind(2, microseconds(around + span));
    std::vector<std::string> links;
    while (rows.step()) links.push_back(rows.text(0));
    return links;
}

void StoryTable::setArticleLink(std::int64_t number, std::string_view link, std::int64_t stamp) {
    Statement put(database_, "UPDATE stories SET articleLink = ?2, stamp = ?3 WHERE number = ?1");
    put.bind(0, number).bind(1, link).bind(2, stamp);
    put.run();
}

std::optional<StoredStory> StoryTable::addCredits(std::string_view storyID,
                                                  const std::vector<kit::SourceCredit>& ofPage,
                                                  std::int64_t stamp) {
    ArticleCredits(database_).put(storyID, ofPage);
    Statement row(database_, "SELECT number FROM stories WHERE id = ?");
    row.bind(0, storyID);
    if (!row.step()) return std::nullopt;
    auto stored = uncorrected(row.number(0));
    if (!stored) return std::nullopt;
    auto credits = kit::joinedCredits(stored->story.credits, ofPage);
    if (credits == stored->story.credits) return std::nullopt;
    stored->story.credits = std::move(credits);
    const auto text = creditsText(stored->story.credits);
    Statement put(database_, "UPDATE stories SET credits = ?2, stamp = ?3 WHERE number = ?1");
    put.bind(0, stored->number).bind(1, text).bind(2, stamp).run();
    return stored;
}

std::string StoryTable::creditsText(const std::vector<kit::SourceCredit>& credits) {
    return credits.empty() ? "[]" : boost::json::serialize(kit::encode(credits));
}

std::size_t StoryTable::countIn(Database& database) {
    Statement row(database, "SELECT count(*) FROM stories");
    row.step();
    return static_cast<std::size_t>(row.number(0));
}

/// `condition` selects by `number`, with `parameter` as its only one, "?1".
std::vector<std::int64_t> StoryTable::drop(const std::string& condition, std::int64_t parameter,
                                           kit::Instant now) {
    PendingMarks(database_).storeMarksOf(condition, parameter, now);
    Statement drop(database_,
                   fmt::format("DELETE FROM stories WHERE {} RETURNING number", condition));
    drop.bind(0, parameter);
    return numbers(drop);
}

std::vector<std::int64_t> StoryTable::dropPublishedBefore(kit::Instant cutoff, kit::Instant now) {
    PendingMarks(database_).clean(now);
    Statement forget(database_, "DELETE FROM departed WHERE lastSeen < ?");
    forget.bind(0, microseconds(now - PendingMarks::kRememberedFor));
    forget.run();
    Statement old(database_,
                  fmt::format("SELECT id, publishedAt, firstSeen FROM stories WHERE number < ? "
                              "AND {}",
                              kUnsaved));
    Statement remember(database_, "INSERT OR REPLACE INTO departed (id, lastSeen) VALUES (?, ?)");
    old.bind(0, firstStoryNumber(cutoff));
    while (old.step()) {
        if (!isUndated(instantOf(old.number(1)), instantOf(old.number(2)))) continue;
        remember.bind(0, old.view(0)).bind(1, microseconds(now));
        remember.run();
    }
    return drop(fmt::format("number < ?1 AND {}", kUnsaved), firstStoryNumber(cutoff), now);
}

std::vector<std::int64_t> StoryTable::dropBeyond(std::size_t ceiling, kit::Instant now) {
    const auto present = count();
    if (present <= ceiling) return {};
    return drop(
        fmt::format("number IN (SELECT number FROM stories WHERE {} ORDER BY number LIMIT ?1)",
                    kUnsaved),
        static_cast<std::int64_t>(present - ceiling), now);
}

}  // namespace app
