#pragma once

#include <optional>
#include <string>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Pages/ArticleText.h"

namespace kit {
class HTTPClient;
}

namespace app {

/// The article of a story's page, or a sentence that says why there is none.
struct FetchedArticle {
    std::optional<kit::Article> article{};
    std::string failure{};
};

/// Fetches the page at the address, which a feed has named, and reads its article.
boost::asio::awaitable<FetchedArticle> fetchArticle(kit::HTTPClient& http, std::string address);

}  // namespace app
