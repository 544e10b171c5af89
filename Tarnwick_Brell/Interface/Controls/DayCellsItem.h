#pragma once

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

namespace app {

/// One cell a day, the last day at the right. Painted, because a page shows thousands of cells. The
/// height tells an outage from an issue without colour; maintenance is hollow, an unknown day
/// dotted.
class DayCellsItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<int> days MEMBER days_ WRITE setDays NOTIFY changed)
    Q_PROPERTY(int first MEMBER first_ NOTIFY changed)
    Q_PROPERTY(int cellWidth MEMBER cellWidth_ NOTIFY changed)
    Q_PROPERTY(int cellGap MEMBER cellGap_ NOTIFY changed)
    Q_PROPERTY(int upHeight MEMBER upHeight_ NOTIFY changed)
    Q_PROPERTY(int issueHeight MEMBER issueHeight_ NOTIFY changed)
    Q_PROPERTY(int lineWidth MEMBER lineWidth_ NOTIFY changed)
    Q_PROPERTY(QColor unknownColor MEMBER unknownColor_ NOTIFY changed)
    Q_PROPERTY(QColor upColor MEMBER upColor_ NOTIFY changed)
    Q_PROPERTY(QColor maintenanceColor MEMBER maintenanceColor_ NOTIFY changed)
    Q_PROPERTY(QColor issueColor MEMBER issueColor_ NOTIFY changed)
    Q_PROPERTY(QColor outageColor MEMBER outageColor_ NOTIFY changed)

public:
    /// What a cell shows, with the numbers of `kit::ServiceDay`.
    enum Kind { Unknown, Up, Maintenance, Issue, Outage };
    Q_ENUM(Kind)

    explicit DayCellsItem(QQuickItem* parent = nullptr);

    void setDays(const QList<int>& days);
    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    void paintCell(QPainter* painter, int day, int x) const;

    QList<int> days_;
    int first_ = 0;  ///< the days before it are left out
    int cellWidth_ = 1;
    int cellGap_ = 0;
    int upHeight_ = 1;
    int issueHeight_ = 1;
    int lineWidth_ = 1;
    QColor unknownColor_;
    QColor upColor_;
    QColor maintenanceColor_;
    QColor issueColor_;
    QColor outageColor_;
};

}  // namespace app
