#include "Tarnwick_Brell/Interface/Panels/LineChartItem.h"

#include <QPainter>
#include <QPolygonF>

namespace app {

void LineChartItem::paint(QPainter* painter) {
    if (points_.isEmpty()) return;
    painter->setRenderHint(QPainter::Antialiasing);
    // A line on the edge would lose half of its width.
    const double inset = lineWidth() / 2;
    QPolygonF line;
    for (const auto& point : points_) {
        line << QPointF(point.x() * width(), inset + point.y() * (height() - 2 * inset));
    }
    if (line.size() == 1) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(color());
        const auto radius = 2 * lineWidth();
        painter->drawEllipse(line.first(), radius, radius);
        return;
    }
    if (fillOpacity_ > 0) {
        auto area = line;
        area << QPointF(line.last().x(), height()) << QPointF(line.first().x(), height());
        auto fill = color();
        fill.setAlphaF(static_cast<float>(fillOpacity_));
        painter->setPen(Qt::NoPen);
        painter->setBrush(fill);
        painter->drawPolygon(area);
    }
    painter->setBrush(Qt::NoBrush);
    QPen pen(color(), lineWidth(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (!dashes_.isEmpty()) {
        pen.setDashPattern(dashes_);
        pen.setCapStyle(Qt::FlatCap);
    }
    painter->setPen(pen);
    painter->drawPolyline(line);
}

}  // namespace app
