#pragma once

#include <memory>
#include <vector>

#include <QAbstractListModel>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>
#include <qqmlregistration.h>

#include "NewsroomKit/Alerts/Rehearsal.h"
#include "Tarnwick_Brell/Models/Beats/BeatPreviewModel.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Pages/LibraryReading.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

struct RehearsedRow {
    Q_GADGET
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(QString origin MEMBER origin)
    Q_PROPERTY(QString badge MEMBER badge)
    Q_PROPERTY(QList<app::MarkedPart> title MEMBER title)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString when{};
    QString origin{};  ///< the outlet of a story, the kind of a signal
    QString badge{};   ///< what became of it if it was not told at once
    QList<MarkedPart> title{};
    QString spokenText{};

    bool operator==(const RehearsedRow&) const = default;
};

/// What a rule being edited would have told of the last days. An older answer stays until the new
/// one has been made, on the thread that reads the library.
class RehearsalModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The sheet of a rule has one.")
    Q_PROPERTY(bool isReady READ isReady NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QString count READ count NOTIFY changed)
    Q_PROPERTY(QString rate READ rate NOTIFY changed)
    Q_PROPERTY(QString firstDay READ firstDay NOTIFY changed)
    Q_PROPERTY(QList<qreal> bars READ bars NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(QString tried READ tried NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    static constexpr int kDays = 14;

    explicit RehearsalModel(const DeskStores& stores, QObject* parent = nullptr);

    void setRule(const kit::AlertRule& rule);

    bool isReady() const { return isReady_; }
    /// Why there is no answer; empty when there is one.
    const QString& problem() const { return problem_; }
    /// "11 times"
    QString count() const;
    /// "in 14 days", "in 14 days, 2,300 a day"
    QString rate() const;
    QString firstDay() const;
    QList<qreal> bars() const;
    QString summary() const;
    QString tried() const;
    QAbstractListModel* rows() { return &rows_; }

signals:
    void changed();

private:
    using Events = std::shared_ptr<const std::vector<kit::AlertEvent>>;
    struct Answer {
        Events stories{};
        Events logged{};
        kit::Rehearsal rehearsal{};
        std::vector<RehearsedRow> rows{};
        std::size_t events = 0;
        qint64 milliseconds = 0;
    };

    void start();
    void show(Answer answer);
    void fail(const QString& problem);

    DeskStores stores_;
    kit::AlertRule rule_;
    QTimer pause_;
    Events stories_;  ///< read once
    Events logged_;
    bool isReady_ = false;
    QString problem_;
    Answer answer_;
    kit::Instant now_{};
    GadgetListModel<RehearsedRow> rows_;
    LibraryReading<Answer> reading_;
};

}  // namespace app
