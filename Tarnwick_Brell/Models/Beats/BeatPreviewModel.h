#pragma once

#include <vector>

#include <QAbstractListModel>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <qqmlregistration.h>

#include "NewsroomKit/Panels/BeatPreview.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Rows/MarkedPart.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"

namespace app {

struct BeatMatchRow {
    Q_GADGET
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString age MEMBER age)
    Q_PROPERTY(app::StorySourcing::Value sourcing MEMBER sourcing)
    Q_PROPERTY(QString sourcingLabel MEMBER sourcingLabel)
    Q_PROPERTY(QList<app::MarkedPart> title MEMBER title)
    Q_PROPERTY(QList<app::MarkedPart> summary MEMBER summary)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString outlet{};
    QString age{};
    StorySourcing::Value sourcing = StorySourcing::Unlabeled;
    QString sourcingLabel{};
    QList<MarkedPart> title{};
    QList<MarkedPart> summary{};
    QString spokenText{};

    bool operator==(const BeatMatchRow&) const = default;
};

/// What a beat being edited would have shown of the last two weeks. An older answer stays until
/// the new one has been made. The wire is scanned a few milliseconds at a time, and the stories
/// found are counted and marked on the worker's thread.
class BeatPreviewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The sheet of a beat has one.")
    Q_PROPERTY(State state READ state NOTIFY changed)
    Q_PROPERTY(QString count READ count NOTIFY changed)
    Q_PROPERTY(QString rate READ rate NOTIFY changed)
    Q_PROPERTY(QString gain READ gain NOTIFY changed)
    Q_PROPERTY(QString firstDay READ firstDay NOTIFY changed)
    Q_PROPERTY(QList<qreal> bars READ bars NOTIFY changed)
    Q_PROPERTY(QStringList words READ words NOTIFY changed)
    Q_PROPERTY(QString otherForm READ otherForm NOTIFY changed)
    Q_PROPERTY(QString otherFormAction READ otherFormAction NOTIFY changed)
    Q_PROPERTY(QString tooMuch READ tooMuch NOTIFY changed)
    Q_PROPERTY(QString rehearsal READ rehearsal NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* matches READ matches CONSTANT)

public:
    /// Nothing is asked for, the first answer is being made, it is there.
    enum State { Nothing, Counting, Ready };
    Q_ENUM(State)

    BeatPreviewModel(NewsDesk& desk, kit::Clock clock, QObject* parent = nullptr);

    void setDraft(const kit::BeatDraft& draft);

    State state() const { return state_; }
    /// "42 stories"
    QString count() const;
    /// "in 14 days, 3 a day"
    QString rate() const;
    /// "+7 by “Quantum”"
    QString gain() const;
    QString firstDay() const;
    /// Stories of each day as a share of the most, the oldest day first.
    QList<qreal> bars() const;
    /// "M6 19"
    QStringList words() const;
    QString otherForm() const;
    QString otherFormAction() const;
    QString tooMuch() const;
    /// How often alerts would have been raised.
    QString rehearsal() const;
    QAbstractListModel* matches() { return &matches_; }

    /// The word that `otherFormAction` adds, and the one that `tooMuch` is about.
    std::string otherFormWord() const;
    std::string tooMuchWord() const;

signals:
    void changed();

private:
    void show(kit::BeatPreview preview, kit::Instant now, kit::Instant from);

    kit::Clock clock_;
    PanelStoryCollector collector_;
    PanelStoryCollector::SubscriptionID subscription_ = 0;
    State state_ = Nothing;
    kit::BeatPreview preview_;
    kit::Instant now_{};
    kit::Instant from_{};
    GadgetListModel<BeatMatchRow> matches_;
};

}  // namespace app
