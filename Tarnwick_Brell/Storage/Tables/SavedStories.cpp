#include "Tarnwick_Brell/Storage/Tables/SavedStories.h"

#include "NewsroomKit/Library/ContentHash.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/ArticleTable.h"
#include "Tarnwick_Brell/Storage/Tables/KeptFaces.h"
#include "Tarnwick_Brell/Storage/Tables/PendingMarks.h"

namespace app {

namespace {

constexpr std::string_view kSnapshot =
    "SELECT s.id, m.savedAt, s.link, s.title, s.summary, s.author, s.publishedAt, s.sourceID, "
    "s.sourceName, s.destinationName, s.imageURL, s.articleLink FROM stories s "
    "JOIN marks m ON m.number = s.number WHERE s.number = ? AND m.savedAt IS NOT NULL";

kit::SavedStory snapshotOf(const Statement& row) {
    return {.id = row.text(0),
            .savedAt = instantOf(row.number(1)),
            .link = row.text(2),
            .title = row.text(3),
            .excerpt = row.text(4),
            .author = row.optionalText(5),
            .publishedAt = instantOf(row.number(6)),
            .sourceID = row.text(7),
            .sourceName = row.text(8),
            .destinationName = row.optionalText(9),
            .imageURL = row.optionalText(10),
            .articleLink = row.optionalText(11)};
}

std::string paragraphsOf(const kit::Article& article) {
    std::string text;
    for (const auto& block : article.blocks) text += (text.empty() ? "" : "\n\n") + block.text;
    return text;
}

}  // namespace

void SavedStories::keep(std::int64_t number) {
    Statement found(database_, kSnapshot);
    found.bind(0, number);
    if (!found.step()) return;
    auto story = snapshotOf(found);
    found.reset();
    kept_.restore(KeptKind::story, story.id);
    if (const auto stored = kept_.record(KeptKind::story, story.id)) {
        try {
            auto former = kit::decode<kit::SavedStory>(kit::parseJSON(*stored));
            if (former.sourceID.empty()) {
                // An imported link says less than the feed does.
                story.tags = std::move(former.tags);
                story.projectIDs = std::move(former.projectIDs);
            } else {
                former.savedAt = story.savedAt;
                story = std::move(former);
            }
        } catch (const kit::RecordError&) {
            return;  // A newer version's, which stays as it is.
        }
    }
    writeKept(kept_, story);
    copyText(story.id);
}

void SavedStories::hide(std::string_view id) { kept_.remove(KeptKind::story, id, systemInstant()); }

void SavedStories::hide(std::int64_t number) {
    Statement found(database_, "SELECT id FROM stories WHERE number = ?");
    if (found.bind(0, number).step()) hide(found.text(0));
}

void SavedStories::bringBack(std::string_view id) {
    if (!kept_.restore(KeptKind::story, id)) return;
    const auto row = kept_.row(KeptKind::story, id);
    PendingMarks(database_).add(id, Mark::saved, row->at, systemInstant());
}

std::optional<kit::SavedText> SavedStories::text(std::string_view story) {
    Statement found(database_,
                    "SELECT url, fetchedAt, sha256, title, text FROM savedTexts WHERE story = ?");
    found.bind(0, story);
    if (!found.step()) return std::nullopt;
    return kit::SavedText{.url = found.text(0),
                          .fetchedAt = instantOf(found.number(1)),
                          .sha256 = found.text(2),
                          .title = found.text(3),
                          .text = found.text(4)};
}

void SavedStories::keepText(std::string_view story, std::string_view url,
                            const kit::Article& article, kit::Instant fetchedAt) {
    kit::SavedText text{.url = std::string(url),
                        .fetchedAt = fetchedAt,
                        .title = article.title,
                        .text = paragraphsOf(article)};
    text.sha256 = kit::sha256Hex(text.text);
    keepText(story, text);
}

void SavedStories::keepText(std::string_view story, const kit::SavedText& text) {
    Statement(database_,
              "INSERT OR IGNORE INTO savedTexts (story, url, fetchedAt, sha256, title, text) "
              "VALUES (?, ?, ?, ?, ?, ?)")
        .bind(0, story)
        .bind(1, text.url)
        .bind(2, microseconds(text.fetchedAt))
        .bind(3, text.sha256)
        .bind(4, text.title)
        .bind(5, text.text)
        .run();
}

void SavedStories::copyText(std::string_view story) {
    const auto stored = ArticleTable(database_).find(story);
    if (stored) keepText(story, stored->url, stored->article, stored->fetchedAt);
}

}  // namespace app
