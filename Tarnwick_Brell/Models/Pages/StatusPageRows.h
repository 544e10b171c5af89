#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Panels/StatusPageContent.h"
#include "Tarnwick_Brell/Models/Panels/TrackerLabels.h"

namespace app {

/// What a row of the page of services is.
namespace StatusRowKind {

Q_NAMESPACE
QML_ELEMENT

enum Value { Heading, Problem, Table, Columns, Service, Fold };
Q_ENUM_NS(Value)

}  // namespace StatusRowKind

/// A row of the page: of a problem, of a table of services, or between them.
struct StatusPageRow {
    Q_GADGET
    Q_PROPERTY(app::StatusRowKind::Value kind MEMBER kind)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString subject MEMBER subject)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString warning MEMBER warning)
    Q_PROPERTY(QString message MEMBER message)
    Q_PROPERTY(QString facts MEMBER facts)
    Q_PROPERTY(bool isUp MEMBER isUp)
    Q_PROPERTY(app::ProblemLevel::Value level MEMBER level)
    Q_PROPERTY(QString levelLabel MEMBER levelLabel)
    Q_PROPERTY(QList<int> days MEMBER days)
    Q_PROPERTY(QString share MEMBER share)
    Q_PROPERTY(QString last MEMBER last)
    Q_PROPERTY(bool isOld MEMBER isOld)
    Q_PROPERTY(bool isOpen MEMBER isOpen)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    StatusRowKind::Value kind = StatusRowKind::Heading;
    QString title{};    ///< of a service, a problem or a table
    QString subject{};  ///< the service
    QString detail{};   ///< "63 of 64 up"; of a problem how long it has gone on
    QString warning{};  ///< of a table: why it is old
    QString message{};  ///< Apple's words
    QString facts{};    ///< of a problem: whom it affects, and the times
    bool isUp = true;
    ProblemLevel::Value level = ProblemLevel::Issue;
    QString levelLabel{};
    QList<int> days{};  ///< DayCells.qml
    QString share{};    ///< of columns: the head of the share
    QString last{};     ///< the last incident
    bool isOld = false;
    bool isOpen = false;  ///< of a fold: what it holds is shown
    QString spokenText{};
    // Where the row comes from:
    kit::StatusFeed audience{};
    int service = -1;

    bool operator==(const StatusPageRow&) const = default;
};

/// A day, or an incident of the log.
struct IncidentLogRow {
    Q_GADGET
    Q_PROPERTY(bool isDay MEMBER isDay)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(app::ProblemLevel::Value level MEMBER level)
    Q_PROPERTY(QString levelLabel MEMBER levelLabel)
    Q_PROPERTY(QString duration MEMBER duration)
    Q_PROPERTY(QString message MEMBER message)
    Q_PROPERTY(QString times MEMBER times)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    bool isDay = false;
    QString title{};  ///< "Sun 15 Nov", or the service
    ProblemLevel::Value level = ProblemLevel::Issue;
    QString levelLabel{};
    QString duration{};
    QString message{};
    QString times{};  ///< Apple's, then the desk's
    QString spokenText{};

    bool operator==(const IncidentLogRow&) const = default;
};

std::vector<IncidentLogRow> logRows(const std::vector<kit::StatusPageContent::Incident>& log,
                                    kit::Instant now);
StatusPageRow problemRow(const kit::StatusPageContent::Problem& problem, kit::Instant now);
/// Without `audience` and `service`.
StatusPageRow serviceRow(const kit::StatusPageContent::Service& service, kit::Instant now);

/// "Thu 12 Nov · Issue until 00:34, 48 min"
QString serviceDayText(const kit::StatusPageContent::Service& service, std::size_t day,
                       const kit::DayBounds& days, kit::Instant now);

}  // namespace app
