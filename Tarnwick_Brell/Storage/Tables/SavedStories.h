#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "NewsroomKit/Library/SavedStory.h"
#include "NewsroomKit/Pages/ArticleText.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Tables/KeptTable.h"

namespace app {

/// What saving a story keeps of it: what the feed said and, if it has been fetched, the text of its
/// page. Both outlive the story. All within the caller's transaction.
class SavedStories {
public:
    explicit SavedStories(Database& database) : database_(database), kept_(database) {}

    /// After the story with the number got its mark. What was kept of it before stays as it was;
    /// only the moment of saving is new. Of an imported link tags and projects stay.
    void keep(std::int64_t number);
    /// After the story lost its mark. What is kept is hidden as other removed things are.
    void hide(std::string_view id);
    void hide(std::int64_t number);
    /// A story that the library does not have any more is saved again. It gets its mark when it
    /// returns.
    void bringBack(std::string_view id);

    std::optional<kit::SavedText> text(std::string_view story);
    /// The text of a story's page, unless one is kept already: the evidence is what was seen first.
    void keepText(std::string_view story, std::string_view url, const kit::Article& article,
                  kit::Instant fetchedAt);
    void keepText(std::string_view story, const kit::SavedText& text);

private:
    void copyText(std::string_view story);

    Database& database_;
    KeptTable kept_;
};

}  // namespace app
