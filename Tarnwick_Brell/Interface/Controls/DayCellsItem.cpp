#include "Tarnwick_Brell/Interface/Controls/DayCellsItem.h"

#include <QPainter>

namespace app {

DayCellsItem::DayCellsItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &DayCellsItem::changed, this, [this] { update(); });
}

void DayCellsItem::setDays(const QList<int>& days) {
    if (days_ == days) return;
    days_ = days;
    emit changed();
}

void DayCellsItem::paint(QPainter* painter) {
    // Cells are whole pixels wide; smoothing would blur them.
    painter->setRenderHint(QPainter::Antialiasing, false);
    int x = 0;
    for (qsizetype day = first_; day < days_.size(); ++day) {
        paintCell(painter, days_[day], x);
        x += cellWidth_ + cellGap_;
    }
}

void DayCellsItem::paintCell(QPainter* painter, int day, int x) const {
    const auto bottom = static_cast<int>(height());
    const auto cell = [&](int high) { return QRect(x, bottom - high, cellWidth_, high); };
    switch (day) {
        case Up: painter->fillRect(cell(upHeight_), upColor_); return;
        case Issue: painter->fillRect(cell(issueHeight_), issueColor_); return;
        case Outage: painter->fillRect(cell(bottom), outageColor_); return;
        case Maintenance: {
            painter->setPen(maintenanceColor_);
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(cell(issueHeight_).adjusted(0, 0, -1, -1));
            return;
        }
        default: break;
    }
    const int middle = x + (cellWidth_ - lineWidth_) / 2;
    for (int y = bottom - lineWidth_; y >= bottom - issueHeight_; y -= 3 * lineWidth_)
        painter->fillRect(QRect(middle, y, lineWidth_, lineWidth_), unknownColor_);
}

}  // namespace app
