#pragma once

#include <optional>

#include <QAbstractItemModel>
#include <QPointer>
#include <QQuickItem>
#include <QString>

namespace app {

/// A list of a page whose rows have a `spokenText`. It may end while somebody holds this.
class PageList {
public:
    /// Nothing for another item.
    static std::optional<PageList> of(QQuickItem& item);
    /// The list at a point of the page.
    static std::optional<PageList> at(QQuickItem& page, QPointF point);
    /// The list that the item lies in, or is.
    static std::optional<PageList> around(QQuickItem* item);

    /// Null when the list is gone.
    QQuickItem* item() const { return item_; }
    QAbstractItemModel* rows() const { return rows_; }
    int count() const { return rows_ ? rows_->rowCount() : 0; }
    int current() const { return item_ ? item_->property("currentIndex").toInt() : -1; }
    /// The row at a point of the list; -1 when there is none.
    int rowAt(QPointF point) const;
    /// Headings between rows can't be chosen.
    bool canChoose(int row) const;
    /// Makes it the current row and scrolls to it.
    void choose(int row) const;
    /// What the row says; empty where it has no such role.
    QString text(int row, const char* role = "spokenText") const;

private:
    PageList(QQuickItem& item, QAbstractItemModel& rows) : item_(&item), rows_(&rows) {}

    QPointer<QQuickItem> item_;
    QPointer<QAbstractItemModel> rows_;
};

/// Scrolls whatever the item lies in until it can be seen.
void scrollTo(QQuickItem& item);

}  // namespace app
