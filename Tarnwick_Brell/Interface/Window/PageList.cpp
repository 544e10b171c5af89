#include "Tarnwick_Brell/Interface/Window/PageList.h"

#include <algorithm>
#include <ranges>

#include <QVariant>

namespace app {

namespace {

bool hasFunction(const QQuickItem& item, const char* signature) {
    return item.metaObject()->indexOfMethod(signature) >= 0;
}

}  // namespace

std::optional<PageList> PageList::of(QQuickItem& item) {
    if (!item.inherits("QQuickItemView")) return std::nullopt;
    auto* rows = item.property("model").value<QAbstractItemModel*>();
    const bool speaks = rows && rows->roleNames().values().contains("spokenText");
    return speaks ? std::optional(PageList(item, *rows)) : std::nullopt;
}

std::optional<PageList> PageList::at(QQuickItem& page, QPointF point) {
    if (auto list = of(page)) return list;
    const auto children = page.childItems();
    for (auto* child : children | std::views::reverse) {
        const auto inside = child->mapFromItem(&page, point);
        if (!child->isVisible() || !child->contains(inside)) continue;
        if (auto list = at(*child, inside)) return list;
    }
    return std::nullopt;
}

std::optional<PageList> PageList::around(QQuickItem* item) {
    for (; item; item = item->parentItem()) {
        if (auto list = of(*item)) return list;
    }
    return std::nullopt;
}

int PageList::rowAt(QPointF point) const {
    int row = -1;
    if (!item_) return row;
    const qreal x = point.x() + item_->property("contentX").toDouble();
    const qreal y = point.y() + item_->property("contentY").toDouble();
    QMetaObject::invokeMethod(item_, "indexAt", Q_RETURN_ARG(int, row), Q_ARG(qreal, x),
                              Q_ARG(qreal, y));
    return row;
}

bool PageList::canChoose(int row) const {
    bool can = item_ != nullptr;
    if (can && hasFunction(*item_, "canChoose(int)"))
        QMetaObject::invokeMethod(item_, "canChoose", Q_RETURN_ARG(bool, can), Q_ARG(int, row));
    return can;
}

void PageList::choose(int row) const {
    if (!item_) return;
    if (hasFunction(*item_, "choose(int)")) {
        QMetaObject::invokeMethod(item_, "choose", Q_ARG(int, row));
    } else {
        item_->setProperty("currentIndex", row);
    }
    scrollTo(*item_);
}

QString PageList::text(int row, const char* role) const {
    if (!rows_) return {};
    const int key = rows_->roleNames().key(role, -1);
    return key < 0 ? QString() : rows_->index(row, 0).data(key).toString();
}

void scrollTo(QQuickItem& item) {
    for (auto* outer = item.parentItem(); outer; outer = outer->parentItem()) {
        if (!outer->inherits("QQuickFlickable")) continue;
        const auto* content = outer->property("contentItem").value<QQuickItem*>();
        const auto top = item.mapToItem(content, {}).y();
        const auto at = outer->property("contentY").toDouble();
        const auto below = top + item.height() - outer->height();
        outer->setProperty("contentY", std::min(std::max(at, below), top));
    }
}

}  // namespace app
