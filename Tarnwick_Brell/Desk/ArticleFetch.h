#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Pages/ArticleText.h"
#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Desk/PassReport.h"

namespace kit {
class HTTPClient;
}

namespace app {

class LocalStore;

/// The article of a story's page, or a sentence that says why there is none.
struct FetchedArticle {
    std::optional<kit::Article> article{};
    std::string failure{};
};

/// Fetches the page at the address, which a feed has named, and reads its article.
boost::asio::awaitable<FetchedArticle> fetchArticle(kit::HTTPClient& http, std::string address);

/// What the page of a story credits for its news; `siteURL` is its source's own site.
std::vector<kit::SourceCredit> creditsIn(const kit::Article& article, const kit::Story& story,
                                         std::string_view siteURL);

/// Stores the article of a story, and its credits with the story; of a saved one the text is kept,
/// unless one is kept already. What that changed in the story,
/// if anything. Throws StoreError.
std::optional<CommittedBatch> storeArticle(LocalStore& store, const kit::Story& story,
                                           std::string_view siteURL, const kit::Article& article,
                                           kit::Instant now);

}  // namespace app
