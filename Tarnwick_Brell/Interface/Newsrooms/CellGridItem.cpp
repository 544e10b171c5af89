#include "Tarnwick_Brell/Interface/Newsrooms/CellGridItem.h"

#include <QPainter>

namespace app {

CellGridItem::CellGridItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &CellGridItem::changed, this, [this] { update(); });
}

void CellGridItem::paint(QPainter* painter) {
    if (columns_ < 1 || rows_ < 1) return;
    QPen pen(color_, lineWidth_, Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({3, 3});  // in widths of the line
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen);
    painter->setBrush(fill_);
    const double cellWidth = (width() - (columns_ - 1) * gap_) / columns_;
    const double cellHeight = (height() - (rows_ - 1) * gap_) / rows_;
    // The line lies inside of the cell, on whole pixels.
    const double inset = lineWidth_ / 2;
    for (int row = 0; row < rows_; ++row) {
        for (int column = 0; column < columns_; ++column) {
            const QRectF cell(qRound(column * (cellWidth + gap_)),
                              qRound(row * (cellHeight + gap_)), qRound(cellWidth),
                              qRound(cellHeight));
            painter->drawRoundedRect(cell.adjusted(inset, inset, -inset, -inset), radius_, radius_);
        }
    }
}

}  // namespace app
