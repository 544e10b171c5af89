#include "Tarnwick_Brell/Storage/Tables/ArticleTable.h"

#include "NewsroomKit/Pages/PageKeys.h"
#include "NewsroomKit/Records/Codec.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

namespace {

std::string textOf(const kit::Article& article) {
    std::string text;
    for (const auto& block : article.blocks) text += block.text + "\n";
    return text;
}

/// Each word as a phrase of its own, so that none is an operator of the full-text search.
std::string articleMatch(const std::vector<std::string>& words) {
    std::string expression;
    for (const auto& word : words) {
        expression += expression.empty() ? "\"" : " \"";
        for (const char c : word) expression += c == '"' ? "\"\"" : std::string(1, c);
        expression += '"';
    }
    return expression;
}

}  // namespace

std::optional<StoredArticle> ArticleTable::find(std::string_view storyID) {
    Statement row(
        database_,
        "SELECT url, fetchedAt, record, earlierAt, earlier FROM articles WHERE story = ?");
    row.bind(0, storyID);
    if (!row.step()) return std::nullopt;
    StoredArticle stored{.storyID = std::string(storyID),
                         .url = row.text(0),
                         .fetchedAt = instantOf(row.number(1)),
                         .article = {},
                         .earlierAt = instantOf(row.optionalNumber(3)),
                         .earlier = {}};
    try {
        stored.article = kit::decode<kit::Article>(kit::parseJSON(row.view(2)));
        if (const auto earlier = row.optionalView(4)) {
            stored.earlier = kit::decode<std::vector<kit::PageBlock>>(kit::parseJSON(*earlier));
        }
    } catch (const kit::RecordError&) {
        return std::nullopt;
    }
    return stored;
}

std::vector<std::string> ArticleTable::search(const std::vector<std::string>& words) {
    std::vector<std::string> stories;
    if (words.empty()) return stories;
    Statement rows(database_,
                   "SELECT a.story FROM articles a JOIN articleSearch f ON f.rowid = a.number "
                   "WHERE f.articleSearch MATCH ? ORDER BY a.fetchedAt DESC");
    const auto match = articleMatch(words);
    rows.bind(0, match);
    while (rows.step()) stories.push_back(rows.text(0));
    return stories;
}

void ArticleTable::put(std::string_view storyID, std::string_view url, const kit::Article& article,
                       kit::Instant now) {
    deleteBefore(now - kKept);
    auto earlier = find(storyID);
    std::optional<std::int64_t> earlierAt;
    std::optional<std::string> earlierBlocks;
    if (earlier) {
        const bool isSame = kit::pageKeys(earlier->article.blocks) == kit::pageKeys(article.blocks);
        earlierAt = microseconds(isSame ? earlier->earlierAt : earlier->fetchedAt);
        const auto& blocks = isSame ? earlier->earlier : earlier->article.blocks;
        if (earlierAt) earlierBlocks = boost::json::serialize(kit::encode(blocks));
    }
    Statement(database_,
              "DELETE FROM articleSearch WHERE rowid = "
              "(SELECT number FROM articles WHERE story = ?)")
        .bind(0, storyID)
        .run();
    const auto record = boost::json::serialize(kit::encode(article));
    Statement put(database_,
                  "INSERT INTO articles (story, url, fetchedAt, record, earlierAt, earlier) "
                  "VALUES (?1, ?2, ?3, ?4, ?5, ?6) ON CONFLICT (story) DO UPDATE SET "
                  "url = ?2, fetchedAt = ?3, record = ?4, earlierAt = ?5, earlier = ?6");
    put.bind(0, storyID).bind(1, url).bind(2, microseconds(now)).bind(3, record);
    put.bind(4, earlierAt).bind(5, earlierBlocks).run();
    const auto text = textOf(article);
    Statement index(database_,
                    "INSERT INTO articleSearch (rowid, title, text) "
                    "SELECT number, ?2, ?3 FROM articles WHERE story = ?1");
    index.bind(0, storyID).bind(1, article.title).bind(2, text).run();
}

void ArticleTable::deleteBefore(kit::Instant time) {
    const auto oldest = microseconds(time);
    Statement(database_,
              "DELETE FROM articleSearch WHERE rowid IN "
              "(SELECT number FROM articles WHERE fetchedAt < ?)")
        .bind(0, oldest)
        .run();
    Statement(database_, "DELETE FROM articles WHERE fetchedAt < ?").bind(0, oldest).run();
}

}  // namespace app
