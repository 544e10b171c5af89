#include "Tarnwick_Brell/Storage/StoryTable.h"

#include <limits>

#include <fmt/format.h>

#include "NewsroomKit/Stories/StoryShape.h"
#include "Tarnwick_Brell/Storage/Instants.h"
#include "Tarnwick_Brell/Storage/StoryNumber.h"

namespace desk {

namespace {

using newsroom::Story;

constexpr std::string_view kSelection =
    "SELECT s.id, s.link, s.title, s.summary, s.author, s.publishedAt, s.imageURL, s.sourceID, "
    "s.sourceName, s.destinationName, s.isAppleSource, s.kind, s.sourcing, s.wordpressID, "
    "s.articleLink, s.credits, s.firstSeen, s.arrival, s.number, m.readAt, m.savedAt "
    "FROM stories s LEFT JOIN marks m ON m.number = s.number ";

constexpr std::string_view kUnsaved =
    "number NOT IN (SELECT number FROM marks WHERE savedAt IS NOT NULL)";

template <class E>
E enumAt(const Statement& row, int column, E fallback) {
    return newsroom::enumFromRaw<E>(row.view(column)).value_or(fallback);
}

std::optional<newsroom::Instant> instantAt(const Statement& row, int column) {
    const auto number = row.optionalNumber(column);
    return number ? std::optional(instantOf(*number)) : std::nullopt;
}

std::vector<std::int64_t> numbers(Statement& statement) {
    std::vector<std::int64_t> all;
    while (statement.step()) all.push_back(statement.number(0));
    return all;
}

}  // namespace

std::string_view StoryTable::selection() { return kSelection; }

StoredStory StoryTable::read(const Statement& row) {
    StoredStory stored;
    Story& story = stored.story;
    story.id = row.text(0);
    story.link = row.text(1);
    story.title = row.text(2);
    story.summary = row.text(3);
    story.author = row.optionalText(4);
    story.publishedAt = instantOf(row.number(5));
    story.imageURL = row.optionalText(6);
    story.sourceID = row.text(7);
    story.sourceName = row.text(8);
    story.destinationName = row.optionalText(9);
    story.isAppleSource = row.number(10) != 0;
    story.kind = enumAt(row, 11, newsroom::StoryKind::coverage);
    story.sourcing = enumAt(row, 12, newsroom::Sourcing::unlabeled);
    story.wordpressID = row.optionalNumber(13);
    story.articleLink = row.optionalText(14);
    if (const auto credits = row.view(15); credits != "[]") {
        story.credits =
            newsroom::decode<std::vector<newsroom::SourceCredit>>(newsroom::parseJSON(credits));
    }
    stored.firstSeen = instantOf(row.number(16));
    stored.arrival = enumAt(row, 17, Arrival::fresh);
    stored.number = row.number(18);
    stored.readAt = instantAt(row, 19);
    stored.savedAt = instantAt(row, 20);
    return stored;
}

void StoryTable::eachInWireOrder(std::optional<newsroom::Instant> since, const Visitor& visit) {
    Statement rows(database_,
                   fmt::format("{} WHERE s.number >= ? ORDER BY s.number DESC", kSelection));
    rows.bind(0, since ? firstStoryNumber(*since) : std::numeric_limits<std::int64_t>::min());
    while (rows.step()) {
        if (!visit(read(rows))) break;
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

std::vector<EarlierWording> StoryTable::earlierWordings(std::int64_t number) {
    Statement rows(database_,
                   "SELECT title, replacedAt FROM wordings WHERE number = ? ORDER BY replacedAt");
    rows.bind(0, number);
    std::vector<EarlierWording> wordings;
    while (rows.step()) wordings.push_back({rows.text(0), instantOf(rows.number(1))});
    return wordings;
}

std::size_t StoryTable::count() {
    Statement row(database_, "SELECT count(*) FROM stories");
    row.step();
    return static_cast<std::size_t>(row.number(0));
}

std::vector<std::int64_t> StoryTable::dropPublishedBefore(newsroom::Instant cutoff) {
    Statement drop(database_, fmt::format("DELETE FROM stories WHERE number < ? AND {} "
                                          "RETURNING number",
                                          kUnsaved));
    drop.bind(0, firstStoryNumber(cutoff));
    return numbers(drop);
}

std::vector<std::int64_t> StoryTable::dropBeyond(std::size_t ceiling) {
    const auto present = count();
    if (present <= ceiling) return {};
    Statement drop(database_,
                   fmt::format("DELETE FROM stories WHERE number IN (SELECT number FROM stories "
                               "WHERE {} ORDER BY number LIMIT ?) RETURNING number",
                               kUnsaved));
    drop.bind(0, static_cast<std::int64_t>(present - ceiling));
    return numbers(drop);
}

}  // namespace desk
