#include "Tarnwick_Brell/Window/WindowStores.h"

#include <utility>

namespace desk {

WindowModel::Stores windowStores(AppEnvironment& environment, newsroom::FeedClient::Clock clock) {
    return {.news = environment.newsDesk(),
            .trackers = environment.trackers(),
            .signalsStore = environment.signalsStore(),
            .newsrooms = environment.newsrooms(),
            .defaults = environment.defaults(),
            .clock = std::move(clock)};
}

}  // namespace desk
