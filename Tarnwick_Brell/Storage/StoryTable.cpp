#include "Tarnwick_Brell/Storage/StoryTable.h"

#include <limits>

#include <fmt/format.h>

#include "NewsroomKit/Stories/StoryShape.h"
#include "Tarnwick_Brell/Storage/Instants.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace desk {

namespace {

using newsroom::Story;

// Columns in the order in which bindStory writes and readStory reads them.
constexpr std::string_view kColumns =
    "id, link, title, summary, author, publishedAt, imageURL, sourceID, sourceName, "
    "destinationName, isAppleSource, kind, sourcing, wordpressID, articleLink, credits, firstSeen";

constexpr std::string_view kInsert =
    "INSERT OR IGNORE INTO stories ({}) "
    "VALUES (?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12,?13,?14,?15,?16,?17)";

// The publication time, the first-seen time and the identity stay; a row that is the same
// already is not written again.
constexpr std::string_view kRevise =
    "UPDATE stories SET title=?3, summary=?4, author=?5, imageURL=?7, sourceID=?8, sourceName=?9, "
    "destinationName=?10, isAppleSource=?11, kind=?12, sourcing=?13, wordpressID=?14, "
    "articleLink=coalesce(?15, articleLink), credits=?16 "
    "WHERE id=?1 AND link=?2 AND "
    "(title, summary, author, imageURL, sourceID, sourceName, destinationName, isAppleSource, "
    "kind, "
    "sourcing, wordpressID, credits) IS NOT (?3,?4,?5,?7,?8,?9,?10,?11,?12,?13,?14,?16)";

void bindStory(Statement& statement, const Story& story, const std::string& credits) {
    statement.bind(0, story.id).bind(1, story.link).bind(2, story.title).bind(3, story.summary);
    statement.bind(4, story.author)
        .bind(5, microseconds(story.publishedAt))
        .bind(6, story.imageURL);
    statement.bind(7, story.sourceID).bind(8, story.sourceName).bind(9, story.destinationName);
    statement.bind(10, std::int64_t{story.isAppleSource}).bind(11, rawValue(story.kind));
    statement.bind(12, rawValue(story.sourcing))
        .bind(13, story.wordpressID)
        .bind(14, story.articleLink);
    statement.bind(15, credits);
}

template <class E>
E enumAt(const Statement& row, int column, E fallback) {
    return newsroom::enumFromRaw<E>(row.text(column)).value_or(fallback);
}

StoredStory readStory(const Statement& row) {
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
    if (const auto credits = row.text(15); credits != "[]") {
        story.credits =
            newsroom::decode<std::vector<newsroom::SourceCredit>>(newsroom::parseJSON(credits));
    }
    stored.firstSeen = instantOf(row.number(16));
    return stored;
}

}  // namespace

MergeCount& MergeCount::operator+=(const MergeCount& other) {
    added += other.added;
    revised += other.revised;
    collided += other.collided;
    return *this;
}

MergeCount StoryTable::merge(std::span<const Story> stories, newsroom::Instant seen) {
    Statement insert(database_, fmt::format(kInsert, kColumns));
    Statement revise(database_, kRevise);
    Statement sameLink(database_, "SELECT 1 FROM stories WHERE id=? AND link=?");
    MergeCount count;
    for (const Story& story : stories) {
        const auto credits =
            story.credits.empty() ? "[]" : boost::json::serialize(newsroom::encode(story.credits));
        bindStory(insert, story, credits);
        insert.bind(16, microseconds(seen));
        insert.run();
        if (database_.changes() > 0) {
            ++count.added;
            continue;
        }
        bindStory(revise, story, credits);
        revise.run();
        if (database_.changes() > 0) {
            ++count.revised;
            continue;
        }
        sameLink.bind(0, story.id).bind(1, story.link);
        if (!sameLink.step()) ++count.collided;
        sameLink.reset();
    }
    return count;
}

void StoryTable::eachInWireOrder(std::optional<newsroom::Instant> since,
                                 const std::function<bool(const StoredStory&)>& visit) {
    Statement rows(database_, fmt::format("SELECT {} FROM stories WHERE publishedAt >= ? "
                                          "ORDER BY publishedAt DESC, firstSeen DESC, id",
                                          kColumns));
    rows.bind(0, since ? microseconds(*since) : std::numeric_limits<std::int64_t>::min());
    while (rows.step()) {
        if (!visit(readStory(rows))) break;
    }
}

std::vector<StoredStory> StoryTable::findByID(std::string_view prefix, std::size_t limit) {
    // Ids are hexadecimal, so "g" lies behind everything that the prefix begins.
    Statement rows(database_,
                   fmt::format("SELECT {} FROM stories WHERE id >= ?1 AND id < ?1 || 'g' "
                               "ORDER BY id LIMIT ?2",
                               kColumns));
    rows.bind(0, prefix).bind(1, static_cast<std::int64_t>(limit));
    std::vector<StoredStory> found;
    while (rows.step()) {
        found.push_back(readStory(rows));
        if (found.back().story.id == prefix) break;
    }
    return found;
}

std::size_t StoryTable::count() {
    Statement row(database_, "SELECT count(*) FROM stories");
    row.step();
    return static_cast<std::size_t>(row.number(0));
}

std::size_t StoryTable::dropPublishedBefore(newsroom::Instant cutoff) {
    Statement statement(database_, "DELETE FROM stories WHERE publishedAt < ?");
    statement.bind(0, microseconds(cutoff));
    statement.run();
    return static_cast<std::size_t>(database_.changes());
}

}  // namespace desk
