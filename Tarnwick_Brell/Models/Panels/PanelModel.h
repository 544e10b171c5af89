#pragma once

#include <memory>
#include <optional>
#include <string>

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <qqmlregistration.h>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Newsrooms/PanelSpec.h"
#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "NewsroomKit/Trackers/CachedValue.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

class LibraryStore;
class PanelStoryCollector;

/// The stores that panels show, and the clock.
struct PanelStores {
    NewsDesk& news;
    TrackerStore& trackers;
    LibraryStore& kept;
    kit::Clock clock;
    /// Shared by the panels of a newsroom; a panel without one makes its own.
    std::shared_ptr<PanelStoryCollector> collector{};
};

/// What one panel of a newsroom shows; a subclass for each kind of content. The view shows
/// `state` first: content only counts when it is ready or stale.
class PanelModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QString file READ file CONSTANT)
    Q_PROPERTY(bool isList READ isList CONSTANT)
    Q_PROPERTY(bool hasFigures READ hasFigures CONSTANT)
    Q_PROPERTY(app::PanelModel::State state READ state NOTIFY changed)
    Q_PROPERTY(QString fact READ fact NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString hint READ hint NOTIFY changed)

public:
    enum State {
        Loading,  ///< nothing is known yet, and something is on its way
        Empty,    ///< `message` says so, `hint` what helps
        Ready,
        Stale,  ///< the last good content stays; `message` says what failed, `hint` from when it is
        Failed  ///< nothing was ever good; `message` says why
    };
    Q_ENUM(State)

    PanelModel(const PanelStores& stores, const kit::PanelSpec& panel);
    /// For what only the desk's own pages show.
    explicit PanelModel(const PanelStores& stores);

    /// The QML file that shows it, beside PanelBody.qml: StatusPanel.qml for a StatusPanelModel.
    virtual QString file() const;
    /// Its rows run to the panel's lower edge and are cut there.
    bool isList() const { return isList_; }
    /// A number leads each row.
    virtual bool hasFigures() const { return false; }
    State state() const { return state_; }
    /// One quiet fact for the header: an age, a range, a count.
    const QString& fact() const { return fact_; }
    const QString& message() const { return message_; }
    const QString& hint() const { return hint_; }

    /// Called twice a minute, because ages move.
    virtual void tick() {}
    /// Fetches again what the panel shows.
    Q_INVOKABLE virtual void retry() {}

    Q_INVOKABLE void openStory(const QString& storyID) { emit storyWanted(storyID); }
    Q_INVOKABLE void openLink(const QString& link) { emit linkWanted(link); }
    /// The story of a row for other programs, by kind of data; empty for one that the desk does not
    /// have.
    Q_INVOKABLE virtual QVariantMap dragData(const QString& storyID) const;

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
    void setCondition(Condition condition);

    /// The condition of a content in words, with the time of its data as the fact. `nothing` is the
    /// sentence that stands where there are no rows.
    Condition conditionOf(const kit::PanelCondition& condition, const QString& nothing = {}) const;

    /// The condition of a panel whose content is a tracker's reading: loading, failed, stale
    /// or ready, with the age as the fact.
    template <class T>
    Condition conditionOf(const kit::CachedValue<T>& reading) const {
        return conditionOf(reading.value.has_value(), reading.fetchedAt, reading.error);
    }
    Condition conditionOf(bool hasValue, std::optional<kit::Instant> fetchedAt,
                          const std::optional<std::string>& error) const;

    kit::Instant now() const { return stores_.clock(); }
    NewsDesk& news() const { return stores_.news; }
    TrackerStore& trackers() const { return stores_.trackers; }
    LibraryStore& kept() const { return stores_.kept; }

private:
    PanelStores stores_;
    bool isList_ = true;
    State state_ = Loading;
    QString fact_;
    QString message_;
    QString hint_;
};

}  // namespace app
