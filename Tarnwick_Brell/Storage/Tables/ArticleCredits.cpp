#include "Tarnwick_Brell/Storage/Tables/ArticleCredits.h"

#include <string>

#include "NewsroomKit/Stories/StoryJSON.h"

namespace app {

ArticleCredits::ArticleCredits(Database& database)
    : database_(database), find_(database, "SELECT credits FROM articleCredits WHERE story = ?") {}

std::vector<kit::SourceCredit> ArticleCredits::find(std::string_view storyID) {
    find_.bind(0, storyID);
    std::string text;
    if (find_.step()) text = find_.text(0);
    find_.reset();
    if (text.empty()) return {};
    try {
        return kit::decode<std::vector<kit::SourceCredit>>(kit::parseJSON(text));
    } catch (const kit::RecordError&) {
        return {};
    }
}

void ArticleCredits::put(std::string_view storyID, const std::vector<kit::SourceCredit>& credits) {
    const auto text = boost::json::serialize(kit::encode(credits));
    Statement put(database_,
                  "INSERT INTO articleCredits (story, credits) VALUES (?1, ?2) "
                  "ON CONFLICT (story) DO UPDATE SET credits = ?2");
    put.bind(0, storyID).bind(1, text).run();
}

}  // namespace app
