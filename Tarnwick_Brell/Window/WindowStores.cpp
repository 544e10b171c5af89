#include "Tarnwick_Brell/Window/WindowStores.h"

#include <utility>

namespace app {

WindowModel::Stores windowStores(AppEnvironment& environment, kit::Clock clock) {
    return {.news = environment.newsDesk(),
            .trackers = environment.trackers(),
            .newsrooms = environment.newsrooms(),
            .defaults = environment.defaults(),
            .clock = std::move(clock)};
}

}  // namespace app
