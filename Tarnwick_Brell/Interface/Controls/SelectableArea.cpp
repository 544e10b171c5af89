#include "Tarnwick_Brell/Interface/Controls/SelectableArea.h"

#include <algorithm>

#include <QCursor>
#include <QPointingDevice>
#include <QSGSimpleRectNode>
#include <QTextBoundaryFinder>

namespace app {

namespace {

bool isFinger(const QMouseEvent& event) {
    return event.device() && event.device()->type() == QInputDevice::DeviceType::TouchScreen;
}

}  // namespace

SelectableArea::SelectableArea(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    setAcceptedMouseButtons(Qt::LeftButton);
    setCursor(Qt::IBeamCursor);
}

void SelectableArea::setTarget(QQuickItem* target) {
    if (target_ == target) return;
    if (target_) target_->disconnect(this);
    target_ = target;
    // Text declares its signals in a private header.
    if (target) {
        connect(target, SIGNAL(textChanged(QString)), this, SLOT(clear()));
        connect(target, SIGNAL(fontChanged(QFont)), this, SLOT(clear()));
    }
    forgetLines();
    emit targetChanged();
}

void SelectableArea::setGround(const QColor& ground) {
    if (ground_ == ground) return;
    ground_ = ground;
    update();
    emit groundChanged();
}

void SelectableArea::forgetLines() {
    lines_.reset();
    update();
}

const TextLines& SelectableArea::lines() {
    if (!lines_) lines_ = std::make_unique<TextLines>(*target_);
    return *lines_;
}

QString SelectableArea::selectedText() const {
    if (!target_ || anchor_ == cursor_) return {};
    const auto begin = std::min(anchor_, cursor_);
    return target_->property("text").toString().mid(begin, std::max(anchor_, cursor_) - begin);
}

void SelectableArea::select(int anchor, int cursor) {
    forgetLines();
    if (anchor == anchor_ && cursor == cursor_) return;
    anchor_ = anchor;
    cursor_ = cursor;
    emit selectionChanged();
}

void SelectableArea::mousePressEvent(QMouseEvent* event) {
    if (!target_ || isFinger(*event)) return event->ignore();
    // The page around it would scroll otherwise.
    setKeepMouseGrab(true);
    const auto place = lines().placeAt(event->position());
    select(event->modifiers().testFlag(Qt::ShiftModifier) ? anchor_ : place, place);
}

void SelectableArea::mouseMoveEvent(QMouseEvent* event) {
    if (target_) select(anchor_, lines().placeAt(event->position()));
}

void SelectableArea::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!target_) return;
    const auto place = lines().placeAt(event->position());
    QTextBoundaryFinder words(QTextBoundaryFinder::Word, lines().text());
    words.setPosition(place);
    const auto begin =
        words.isAtBoundary() && (words.boundaryReasons() & QTextBoundaryFinder::StartOfItem)
            ? place
            : static_cast<int>(words.toPreviousBoundary());
    words.setPosition(place);
    const auto end = static_cast<int>(words.toNextBoundary());
    if (begin >= 0 && end > begin) select(begin, end);
}

void SelectableArea::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size()) forgetLines();
}

QSGNode* SelectableArea::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    if (!node) node = new QSGNode();
    while (auto* child = node->firstChild()) {
        node->removeChildNode(child);
        delete child;
    }
    if (!target_ || anchor_ == cursor_) return node;
    const auto begin = std::min(anchor_, cursor_);
    const auto length = std::max(anchor_, cursor_) - begin;
    for (const auto& ground : lines().grounds({begin, length}))
        node->appendChildNode(new QSGSimpleRectNode(ground, ground_));
    return node;
}

}  // namespace app
