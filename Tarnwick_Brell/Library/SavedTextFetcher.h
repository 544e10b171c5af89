#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <QObject>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

namespace kit {
class HTTPClient;
}

namespace app {

class Defaults;
class LocalStore;
class NewsDesk;

/// Keeps the text of a saved story's page, unless one is kept already. The page is fetched only
/// when its text is not stored. Returns why there is none; empty when there is. Throws StoreError.
boost::asio::awaitable<std::string> keepPageText(LocalStore& store, kit::HTTPClient& http,
                                                 StoredStory story, std::string siteURL,
                                                 kit::Instant now);

/// Keeps the texts of stories when they are saved in this desk, as long as the user wants that.
/// What can't be fetched is not tried again.
class SavedTextFetcher : public QObject {
    Q_OBJECT
public:
    SavedTextFetcher(NewsDesk& desk, const Defaults& defaults, kit::Clock clock);

private:
    void keep(const std::vector<std::int64_t>& numbers);

    NewsDesk& desk_;
    const Defaults& defaults_;
    kit::Clock clock_;
};

}  // namespace app
