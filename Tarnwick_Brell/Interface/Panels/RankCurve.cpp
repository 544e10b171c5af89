#include "Tarnwick_Brell/Interface/Panels/RankCurve.h"

#include <QPainter>
#include <QPolygonF>

namespace app {

namespace {

void paintRun(QPainter* painter, QPolygonF& run, double width) {
    if (run.size() > 1) painter->drawPolyline(run);
    if (run.size() == 1) {
        painter->setBrush(painter->pen().color());
        painter->drawEllipse(run.first(), width / 2, width / 2);
        painter->setBrush(Qt::NoBrush);
    }
    run.clear();
}

}  // namespace

void RankCurve::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color(), lineWidth(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    // A line on the edge would lose half of its width.
    const double inset = lineWidth();
    const auto steps = static_cast<double>(levels_.size() - 1);
    const double across = steps > 0 ? (width() - 2 * inset) / steps : 0;
    QPolygonF run;
    for (qsizetype day = 0; day < levels_.size(); ++day) {
        if (levels_[day] < 0) {
            paintRun(painter, run, lineWidth());
        } else {
            run << QPointF(inset + across * static_cast<double>(day),
                           inset + levels_[day] * (height() - 2 * inset));
        }
    }
    paintRun(painter, run, lineWidth());
}

}  // namespace app
