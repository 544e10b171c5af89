#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <QObject>
#include <QTimer>

#include "Tarnwick_Brell/Desk/LiveQuery.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace app {

/// How many stories of each source and beat are unread. Counted between frames, a moment after
/// something has changed; kinds that are set aside do not count, since lists hide them.
class UnreadCounts : public QObject {
    Q_OBJECT
public:
    UnreadCounts(NewsDesk& desk, NewsroomStore& newsrooms);

    int ofSource(const std::string& id) const;
    int ofBeat(const std::string& id) const;
    int stories() const { return counted_.stories; }
    int unread() const { return counted_.unread; }
    int saved() const { return static_cast<int>(desk_.stories().savedCount()); }

signals:
    void changed();

private:
    struct Count {
        int stories = 0;
        int unread = 0;
        std::map<std::string, int, std::less<>> bySource{};
    };
    struct BeatList {
        std::string id;
        kit::StoryQuery query;
        LiveQuery stories;
        int unread = 0;
    };

    void followWire(const WireChange& change);
    void followSources();
    void followBeats();
    void count();
    bool fillBeats();
    void countBeats();

    NewsDesk& desk_;
    NewsroomStore& newsrooms_;
    Count counted_;
    std::set<std::string, std::less<>> leftOut_;  ///< sources that only count for themselves
    std::vector<BeatList> beats_;
    std::optional<Count> counting_;
    std::int64_t countedDownTo_ = 0;  ///< number of the last story counted; places move
    QTimer pause_;
    QTimer work_;
};

}  // namespace app
