#pragma once

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

namespace app {

/// Ranks over days, one level a day: 0 at the top, 1 at the bottom. A negative level is a day
/// without a rank, where the line ends; a day alone is a dot.
class RankCurve : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<double> levels READ levels WRITE setLevels NOTIFY changed)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(double lineWidth READ lineWidth WRITE setLineWidth NOTIFY changed)

public:
    explicit RankCurve(QQuickItem* parent = nullptr);

    const QList<double>& levels() const { return levels_; }
    void setLevels(const QList<double>& levels) { set(levels_, levels); }
    const QColor& color() const { return color_; }
    void setColor(const QColor& color) { set(color_, color); }
    double lineWidth() const { return lineWidth_; }
    void setLineWidth(double width) { set(lineWidth_, width); }

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

    QList<double> levels_;
    QColor color_;
    double lineWidth_ = 1;
};

}  // namespace app
