#pragma once

#include <memory>
#include <optional>
#include <string>

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Newsrooms/PanelSpec.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Signals/SignalsStore.h"
#include "Tarnwick_Brell/Trackers/TrackerReading.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

class PanelStoryCollector;

/// What panels show is taken from these.
struct PanelStores {
    NewsDesk& news;
    TrackerStore& trackers;
    SignalsStore& signalsStore;  ///< Qt has taken the word `signals`
    kit::Clock clock;
    /// Shared by the panels of a newsroom; without one each panel gathers for itself.
    std::shared_ptr<PanelStoryCollector> gatherer{};
};

/// What one panel of a newsroom says; a subclass for each group of kinds. The view shows
/// `state` first: content only counts when it is ready or stale.
class PanelModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(app::PanelModel::Kind kind READ kind CONSTANT)
    Q_PROPERTY(app::PanelModel::State state READ state NOTIFY changed)
    Q_PROPERTY(QString fact READ fact NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString hint READ hint NOTIFY changed)

public:
    /// In the order of kit::PanelKind; after those what only pages of the desk itself show.
    enum Kind {
        Stream,
        Brief,
        TopStories,
        Countdown,
        Claims,
        Stock,
        Software,
        Status,
        Coverage,
        Clips,
        Apple,
        PageWatch,
        Scoops,
        Suppliers,
        Backend,
        Records,
        Releases,
        SignedBuilds,
        TopFree,
        TopPaid
    };
    Q_ENUM(Kind)
    static constexpr Kind kLastOfNewsrooms = Releases;

    enum State {
        Loading,  ///< nothing is known yet, and something is on its way
        Empty,    ///< `message` says so, `hint` what helps
        Ready,
        Stale,  ///< the last good content stays; `message` says what failed, `hint` from when it is
        Failed  ///< nothing was ever good; `message` says why
    };
    Q_ENUM(State)

    PanelModel(const PanelStores& stores, const kit::PanelSpec& panel);
    PanelModel(const PanelStores& stores, Kind kind);

    Kind kind() const { return kind_; }
    State state() const { return state_; }
    /// One quiet fact for the header: an age, a range, a count.
    const QString& fact() const { return fact_; }
    const QString& message() const { return message_; }
    const QString& hint() const { return hint_; }

    /// Once a minute: ages move.
    virtual void tick() {}
    /// What the panel shows is to be fetched again.
    Q_INVOKABLE virtual void retry() {}

    Q_INVOKABLE void openStory(const QString& storyID) { emit storyWanted(storyID); }
    Q_INVOKABLE void openLink(const QString& link) { emit linkWanted(link); }

signals:
    void changed();
    void storyWanted(const QString& storyID);
    void linkWanted(const QString& link);

protected:
    struct Condition {
        State state = Loading;
        QString fact{};
        QString message{};
        QString hint{};

        bool operator==(const Condition&) const = default;
    };

    /// Emits `changed`, also when only the content is another.
    void become(Condition condition);

    /// The condition of a panel whose content is a tracker's reading: loading, failed, stale
    /// or ready, with the age as the fact.
    template <class T>
    Condition conditionOf(const TrackerReading<T>& reading) const {
        return conditionOf(reading.value.has_value(), reading.fetchedAt, reading.error);
    }
    Condition conditionOf(bool hasValue, std::optional<kit::Instant> fetchedAt,
                          const std::optional<std::string>& error) const;

    kit::Instant now() const { return stores_.clock(); }
    NewsDesk& news() const { return stores_.news; }
    TrackerStore& trackers() const { return stores_.trackers; }
    SignalsStore& signalsStore() const { return stores_.signalsStore; }

private:
    PanelStores stores_;
    Kind kind_;
    State state_ = Loading;
    QString fact_;
    QString message_;
    QString hint_;
};

}  // namespace app
