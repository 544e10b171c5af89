#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/Stories/SourceCredit.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// What the pages of stories credit. A story of the library has these credits beside those of its
/// feed, which says less.
class ArticleCredits {
public:
    explicit ArticleCredits(Database& database);

    /// None when the page was never read, or another version has written them.
    std::vector<kit::SourceCredit> find(std::string_view storyID);

    /// Replaces them. They stay for as long as the story does.
    void put(std::string_view storyID, const std::vector<kit::SourceCredit>& credits);

private:
    Database& database_;
    Statement find_;
};

}  // namespace app
