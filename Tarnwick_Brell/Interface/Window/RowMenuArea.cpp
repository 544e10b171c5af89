#include "Tarnwick_Brell/Interface/Window/RowMenuArea.h"

#include <QQuickWindow>

namespace app {

namespace {

/// What the row is about: a service, a platform, a company, a device, a page.
QString subjectOf(const PageList& list, int row) {
    for (const char* role : {"subject", "platform", "company", "name"}) {
        if (auto subject = list.text(row, role); !subject.isEmpty()) return subject;
    }
    return {};
}

}  // namespace

RowMenuArea::RowMenuArea(QQuickItem* parent) : QQuickItem(parent) {
    setAcceptedMouseButtons(Qt::RightButton);
}

void RowMenuArea::mousePressEvent(QMouseEvent* event) {
    event->ignore();
    if (!page_) return;
    const auto at = event->position();
    const auto list = PageList::at(*page_, page_->mapFromItem(this, at));
    if (!list) return;
    const int row = list->rowAt(list->item()->mapFromItem(this, at));
    if (row < 0 || !list->canChoose(row)) return;
    list_ = list;
    row_ = row;
    event->accept();
}

void RowMenuArea::mouseReleaseEvent(QMouseEvent* event) {
    if (list_ && list_->item()) ask(*list_, row_, event->position());
}

void RowMenuArea::askAtFocus() {
    const auto list = PageList::around(window()->activeFocusItem());
    if (!list) return;
    const auto* row = list->item()->property("currentItem").value<QQuickItem*>();
    if (row && list->canChoose(list->current()))
        ask(*list, list->current(), row->mapToItem(this, {row->width() / 4, row->height()}));
}

void RowMenuArea::ask(const PageList& list, int row, QPointF at) {
    list_ = list;
    row_ = row;
    list.item()->forceActiveFocus(Qt::MouseFocusReason);
    list.choose(row);
    QVariantMap facts{{QStringLiteral("opens"), list.item()->property("opens").toBool()}};
    for (const char* role : {"storyID", "link", "spokenText"})
        facts.insert(QString::fromLatin1(role), list.text(row, role));
    facts.insert(QStringLiteral("subject"), subjectOf(list, row));
    if (!list.text(row, "price").isEmpty())
        facts.insert(QStringLiteral("quote"), list.text(row, "symbol"));
    emit menuWanted(at.x(), at.y(), facts);
}

void RowMenuArea::openRow() {
    if (list_ && list_->item())
        QMetaObject::invokeMethod(list_->item(), "opened", Q_ARG(int, row_));
}

}  // namespace app
