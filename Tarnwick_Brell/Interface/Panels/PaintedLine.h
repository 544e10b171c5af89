#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

namespace app {

/// What the drawn lines have in common. Painted, because Shape's lines are smooth only on some
/// machines.
class PaintedLine : public QQuickPaintedItem {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(double lineWidth READ lineWidth WRITE setLineWidth NOTIFY changed)

public:
    explicit PaintedLine(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {
        setAntialiasing(true);
    }

    const QColor& color() const { return color_; }
    void setColor(const QColor& color) { set(color_, color); }
    double lineWidth() const { return lineWidth_; }
    void setLineWidth(double width) { set(lineWidth_, width); }

signals:
    void changed();

protected:
    template <class T>
    void set(T& mine, const T& value) {
        if (mine == value) return;
        mine = value;
        update();
        emit changed();
    }

private:
    QColor color_;
    double lineWidth_ = 1;
};

}  // namespace app
