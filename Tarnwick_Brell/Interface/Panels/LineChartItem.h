#pragma once

#include <QColor>
#include <QList>
#include <QPointF>
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

namespace app {

/// A line through points given as fractions of the item's width and height, with a flat fill below
/// it. Painted, because Shape's lines are smooth only on some machines. A single point is a dot.
class LineChartItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<QPointF> points READ points WRITE setPoints NOTIFY changed)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(double lineWidth READ lineWidth WRITE setLineWidth NOTIFY changed)
    Q_PROPERTY(QList<double> dashes READ dashes WRITE setDashes NOTIFY changed)
    Q_PROPERTY(double fillOpacity READ fillOpacity WRITE setFillOpacity NOTIFY changed)

public:
    explicit LineChartItem(QQuickItem* parent = nullptr);

    const QList<QPointF>& points() const { return points_; }
    void setPoints(const QList<QPointF>& points) { set(points_, points); }
    const QColor& color() const { return color_; }
    void setColor(const QColor& color) { set(color_, color); }
    double lineWidth() const { return lineWidth_; }
    void setLineWidth(double width) { set(lineWidth_, width); }
    /// The lengths of dashes and gaps, in widths of the line; a solid line without them.
    const QList<double>& dashes() const { return dashes_; }
    void setDashes(const QList<double>& dashes) { set(dashes_, dashes); }
    double fillOpacity() const { return fillOpacity_; }
    void setFillOpacity(double opacity) { set(fillOpacity_, opacity); }

    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    template <class T>
    void set(T& mine, const T& value) {
        if (mine == value) return;
        mine = value;
        update();
        emit changed();
    }

    QList<QPointF> points_;
    QColor color_;
    double lineWidth_ = 1;
    QList<double> dashes_;
    double fillOpacity_ = 0;
};

}  // namespace app
