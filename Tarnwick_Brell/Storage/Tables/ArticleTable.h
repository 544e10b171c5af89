#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/ArticleText.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// The text of a story's page as it was last fetched, and as it was before it last changed.
struct StoredArticle {
    std::string storyID{};
    std::string url{};
    kit::Instant fetchedAt{};
    kit::Article article{};
    /// When the earlier text was last seen; absent while the text has not changed.
    std::optional<kit::Instant> earlierAt{};
    std::vector<kit::PageBlock> earlier{};
};

/// Texts of articles, for 30 days after they were fetched.
class ArticleTable {
public:
    static constexpr std::chrono::days kKept{30};

    explicit ArticleTable(Database& database) : database_(database) {}

    /// Nothing when there is none, also when a newer version has written it.
    std::optional<StoredArticle> find(std::string_view storyID);

    /// The ids of stories whose text has all of these words, the latest fetched first.
    std::vector<std::string> search(const std::vector<std::string>& words);

    /// Within a transaction. A text that differs from the stored one keeps that one
    /// as the earlier text. Texts that are too old are deleted.
    void put(std::string_view storyID, std::string_view url, const kit::Article& article,
             kit::Instant now);

private:
    void deleteBefore(kit::Instant time);

    Database& database_;
};

}  // namespace app
