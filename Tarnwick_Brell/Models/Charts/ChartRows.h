#pragma once

#include <QList>
#include <QObject>
#include <QPointF>
#include <QString>
#include <qqmlregistration.h>

/// What stands on and beside a chart. Positions are shares of its width, from the left, and of
/// its height, from the top.
namespace app {

/// A value on an axis.
struct ChartTick {
    Q_GADGET
    Q_PROPERTY(double position MEMBER position)
    Q_PROPERTY(QString label MEMBER label)

public:
    double position = 0;
    QString label{};

    bool operator==(const ChartTick&) const = default;
};

/// What is marked at a point: events, a move of the price, or both.
struct ChartMark {
    Q_GADGET
    Q_PROPERTY(double position MEMBER position)
    Q_PROPERTY(double level MEMBER level)
    Q_PROPERTY(QString events MEMBER events)
    Q_PROPERTY(QString letter MEMBER letter)
    Q_PROPERTY(bool rises MEMBER rises)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    double position = 0;
    double level = 0;  ///< of the curve there
    QString events{};  ///< what they are; empty without any
    QString letter{};  ///< of the move; empty without one
    bool rises = false;
    QString spokenText{};  ///< what all of it is, with the reason that was reported
    int point = 0;

    bool operator==(const ChartMark&) const = default;
};

/// A rule on the price, as a line across the chart.
struct ChartLevel {
    Q_GADGET
    Q_PROPERTY(QString rule MEMBER rule)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(double price MEMBER price)
    Q_PROPERTY(double position MEMBER position)
    Q_PROPERTY(int side MEMBER side)
    Q_PROPERTY(bool isOn MEMBER isOn)

public:
    QString rule{};  ///< its id
    QString name{};
    double price = 0;
    double position = 0;
    int side = 0;  ///< 1 for one above the chart, which stands at its upper edge; -1 below
    bool isOn = false;

    bool operator==(const ChartLevel&) const = default;
};

/// A symbol that is compared with the one of the chart.
struct ChartLine {
    Q_GADGET
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString change MEMBER change)
    Q_PROPERTY(QList<QPointF> line MEMBER line)

public:
    QString symbol{};
    QString change{};  ///< over the range; empty before its prices have come
    QList<QPointF> line{};

    bool operator==(const ChartLine&) const = default;
};

/// A point, read.
struct ChartReading {
    Q_GADGET
    QML_VALUE_TYPE(chartReading)
    Q_PROPERTY(double position MEMBER position)
    Q_PROPERTY(double level MEMBER level)
    Q_PROPERTY(QString price MEMBER price)
    Q_PROPERTY(QString change MEMBER change)
    Q_PROPERTY(QString moment MEMBER moment)
    Q_PROPERTY(QString event MEMBER event)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    double position = 0;
    double level = 0;
    QString price{};
    QString change{};  ///< from the beginning of the range, where symbols are compared
    QString moment{};
    QString event{};  ///< what was marked there
    QString spokenText{};

    bool operator==(const ChartReading&) const = default;
};

}  // namespace app
