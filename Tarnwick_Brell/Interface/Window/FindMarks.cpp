#include "Tarnwick_Brell/Interface/Window/FindMarks.h"

#include <algorithm>
#include <utility>

#include <QPainter>
#include <QQuickWindow>
#include <QTextLayout>

#include "Tarnwick_Brell/Interface/Window/PageList.h"
#include "Tarnwick_Brell/Interface/Window/PageParts.h"

namespace app {

namespace {

/// A new story has been laid out.
constexpr int kFramesUntilReveal = 2;
/// QQuickText's enumeration has no public header.
constexpr int kWrapNone = 0;

bool isText(const QQuickItem& item) { return item.inherits("QQuickText"); }

/// Breaks the lines as QQuickText does.
void layOut(QTextLayout& layout, double width, double lineHeight, int lines, bool wraps,
            Qt::Alignment alignment) {
    QTextOption option(alignment);
    option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    for (int i = 0; i < lines; ++i) {
        auto line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width);
        line.setPosition({0, i * lineHeight});
    }
    layout.endLayout();
}

/// What lies beyond the width is behind the ellipsis.
std::vector<QRectF> groundsOf(const QTextLayout& layout, std::pair<int, int> range, double width) {
    std::vector<QRectF> grounds;
    const auto [begin, length] = range;
    for (int i = 0; i < layout.lineCount(); ++i) {
        const auto line = layout.lineAt(i);
        const int from = std::max(begin, line.textStart());
        const int to = std::min(begin + length, line.textStart() + line.textLength());
        if (from >= to) continue;
        const auto left = line.cursorToX(from), right = line.cursorToX(to);
        const QRectF ground(std::min(left, right), line.y(), std::abs(right - left), line.height());
        if (ground.left() < width) grounds.push_back(ground);
    }
    return grounds;
}

}  // namespace

FindMarks::FindMarks(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &FindMarks::changed, this, [this] { update(); });
}

FindMarks::~FindMarks() = default;

void FindMarks::setFind(FindInPage* find) {
    if (find_ == find) return;
    if (find_) find_->disconnect(this);
    find_ = find;
    connect(find, &FindInPage::changed, this, [this] { update(); });
    connect(find, &FindInPage::partsWanted, this, &FindMarks::setParts);
    connect(find, &FindInPage::shown, this, [this] { framesUntilReveal_ = kFramesUntilReveal; });
    emit changed();
}

void FindMarks::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange) {
        disconnect(frames_);
        if (data.window)
            frames_ = connect(data.window, &QQuickWindow::afterAnimating, this, &FindMarks::follow);
    }
    QQuickPaintedItem::itemChange(change, data);
}

void FindMarks::setParts() {
    if (!searchesPage_ || !page_) return;
    watched_ = std::make_unique<QObject>();
    find_->setParts(partsOf(*page_, *find_, *watched_));
}

/// Before each frame: texts move, come and go without telling anyone.
void FindMarks::follow() {
    if (!find_ || !page_) return;
    std::vector<Shown> shown;
    if (find_->isOpen() && !find_->text().isEmpty())
        visit(*page_, page_->mapToItem(this, {}), boundingRect(), shown);
    if (framesUntilReveal_ > 0) {
        if (--framesUntilReveal_ == 0) revealDetail();
        update();
    }
    if (shown == shown_) return;
    shown_ = std::move(shown);
    update();
}

void FindMarks::visit(QQuickItem& item, QPointF at, QRectF clip, std::vector<Shown>& shown) const {
    if (!item.isVisible() || item.opacity() <= 0) return;
    if (item.clip()) clip &= QRectF(at, item.size());
    if (clip.isEmpty()) return;
    if (isText(item) && clip.intersects(QRectF(at, item.size()))) {
        auto text = shownOf(item, at, clip);
        if (!text.ranges.empty()) shown.push_back(std::move(text));
    }
    for (auto* child : item.childItems()) visit(*child, at + child->position(), clip, shown);
}

FindMarks::Shown FindMarks::shownOf(const QQuickItem& text, QPointF at, const QRectF& clip) const {
    Shown shown{.text = text.property("text").toString()};
    shown.ranges = find_->ranges(shown.text);
    if (shown.ranges.empty()) return shown;
    const QMarginsF padding(
        text.property("leftPadding").toDouble(), text.property("topPadding").toDouble(),
        text.property("rightPadding").toDouble(), text.property("bottomPadding").toDouble());
    shown.rect = QRectF(at, text.size()).marginsRemoved(padding);
    const auto spare = shown.rect.height() - text.property("contentHeight").toDouble();
    const auto vertical = text.property("verticalAlignment").toInt();
    if (vertical == Qt::AlignVCenter) shown.rect.translate(0, spare / 2);
    if (vertical == Qt::AlignBottom) shown.rect.translate(0, spare);
    shown.font = text.property("font").value<QFont>();
    shown.color = text.property("color").value<QColor>();
    shown.clip = clip;
    shown.lineHeight = text.property("lineHeight").toDouble();
    shown.lines = text.property("lineCount").toInt();
    shown.wraps = text.property("wrapMode").toInt() != kWrapNone;
    const auto isCut = text.property("truncated").toBool() && !shown.wraps;
    shown.alignment = isCut ? Qt::AlignLeft
                            : Qt::Alignment(text.property("effectiveHorizontalAlignment").toInt());
    return shown;
}

void FindMarks::paint(QPainter* painter) {
    for (const auto& shown : shown_) {
        QTextLayout layout(shown.text, shown.font);
        layOut(layout, shown.rect.width(), shown.lineHeight, shown.lines, shown.wraps,
               shown.alignment);
        for (const auto& range : shown.ranges) {
            for (auto ground : groundsOf(layout, range, shown.rect.width())) {
                ground.translate(shown.rect.topLeft());
                const auto edge =
                    QRectF(shown.rect.left(), ground.top(), shown.rect.width(), ground.height());
                painter->setClipRect(ground & shown.clip & edge);
                painter->fillRect(ground, ground_);
                painter->setPen(shown.color);
                layout.draw(painter, shown.rect.topLeft());
            }
        }
    }
}

void FindMarks::revealDetail() {
    if (!detail_ || !detail_->isVisible()) return;
    for (auto* text : textsOf(*detail_)) {
        if (find_->ranges(text->property("text").toString()).empty()) continue;
        scrollTo(*text);
        return;
    }
}

}  // namespace app
