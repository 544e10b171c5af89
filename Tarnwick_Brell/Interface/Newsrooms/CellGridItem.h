#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

namespace app {

/// Dashed outlines of cells that fill the item: the empty grid of a newsroom. With one cell it is a
/// dashed frame.
class CellGridItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int columns MEMBER columns_ NOTIFY changed)
    Q_PROPERTY(int rows MEMBER rows_ NOTIFY changed)
    Q_PROPERTY(double gap MEMBER gap_ NOTIFY changed)
    Q_PROPERTY(double radius MEMBER radius_ NOTIFY changed)
    Q_PROPERTY(double lineWidth MEMBER lineWidth_ NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
    Q_PROPERTY(QColor fill MEMBER fill_ NOTIFY changed)

public:
    explicit CellGridItem(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    int columns_ = 1;
    int rows_ = 1;
    double gap_ = 0;
    double radius_ = 0;
    double lineWidth_ = 1;
    QColor color_;
    QColor fill_ = Qt::transparent;
};

}  // namespace app
