#pragma once

#include <optional>

#include <QPointF>
#include <QPointer>
#include <QQuickItem>
#include <QVariantMap>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Interface/Window/PageList.h"

namespace app {

/// Lies over a page and finds the row that the user wants a menu for, in any of the page's lists.
class RowMenuArea : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* page MEMBER page_ NOTIFY pageChanged REQUIRED)

public:
    explicit RowMenuArea(QQuickItem* parent = nullptr);

    /// For the current row of the list with the focus.
    Q_INVOKABLE void askAtFocus();
    /// Opens the row that was asked for, as its list does it.
    Q_INVOKABLE void openRow();

signals:
    void pageChanged();
    /// `facts`: the row's storyID, link and spokenText, and whether it `opens`.
    void menuWanted(qreal x, qreal y, const QVariantMap& facts);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void ask(const PageList& list, int row, QPointF at);

    QPointer<QQuickItem> page_;
    std::optional<PageList> list_;
    int row_ = -1;
};

}  // namespace app
