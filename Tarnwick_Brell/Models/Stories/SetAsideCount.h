#pragma once

#include <QObject>
#include <QTimer>

#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Stories/StoryFilter.h"

namespace app {

/// How many stories a filter hides because their kind is set aside. Counts between frames, a few
/// milliseconds at a time, and follows the wire.
class SetAsideCount : public QObject {
    Q_OBJECT
public:
    /// The desk must outlive it.
    explicit SetAsideCount(NewsDesk& desk, QObject* parent = nullptr);

    void count(const StoryFilter& filter);
    /// Counts nothing, as in a search.
    void clear();
    int value() const { return static_cast<int>(hidden_.size()); }

signals:
    void changed();

private:
    void continueCounting();

    NewsDesk& desk_;
    LiveQuery hidden_;
    QTimer counting_;
};

}  // namespace app
