#pragma once

#include <QList>
#include <QPointF>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Interface/Panels/PaintedLine.h"

namespace app {

/// A line through points given as fractions of the item's width and height, with a flat fill below
/// it. A single point is a dot.
class LineChartItem : public app::PaintedLine {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<QPointF> points READ points WRITE setPoints NOTIFY changed)
    Q_PROPERTY(QList<double> dashes READ dashes WRITE setDashes NOTIFY changed)
    Q_PROPERTY(double fillOpacity READ fillOpacity WRITE setFillOpacity NOTIFY changed)

public:
    using PaintedLine::PaintedLine;

    const QList<QPointF>& points() const { return points_; }
    void setPoints(const QList<QPointF>& points) { set(points_, points); }
    /// The lengths of dashes and gaps, in widths of the line; a solid line without them.
    const QList<double>& dashes() const { return dashes_; }
    void setDashes(const QList<double>& dashes) { set(dashes_, dashes); }
    double fillOpacity() const { return fillOpacity_; }
    void setFillOpacity(double opacity) { set(fillOpacity_, opacity); }

    void paint(QPainter* painter) override;

private:
    QList<QPointF> points_;
    QList<double> dashes_;
    double fillOpacity_ = 0;
};

}  // namespace app
