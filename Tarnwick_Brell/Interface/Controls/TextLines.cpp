#include "Tarnwick_Brell/Interface/Controls/TextLines.h"

#include <algorithm>
#include <cmath>

#include <QFont>
#include <QVariant>

namespace app {

TextLines::TextLines(const QQuickItem& text)
    : text_(text.property("text").toString()),
      origin_(text.property("leftPadding").toDouble(), text.property("topPadding").toDouble()),
      lineHeight_(text.property("lineHeight").toDouble()) {
    // A line break is one in QTextLayout only as a separator of lines.
    auto shown = text_;
    shown.replace(u'\n', QChar::LineSeparator);
    layout_.setText(shown);
    layout_.setFont(text.property("font").value<QFont>());
    QTextOption option(Qt::Alignment(text.property("effectiveHorizontalAlignment").toInt()));
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    const auto width = text.width() - origin_.x() - text.property("rightPadding").toDouble();
    const auto lines = text.property("lineCount").toInt();
    layout_.beginLayout();
    for (int i = 0; i < lines; ++i) {
        auto line = layout_.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width);
        line.setPosition({0, i * lineHeight_});
    }
    layout_.endLayout();
}

std::vector<QRectF> TextLines::grounds(std::pair<int, int> range) const {
    std::vector<QRectF> grounds;
    const auto [begin, length] = range;
    for (int i = 0; i < layout_.lineCount(); ++i) {
        const auto line = layout_.lineAt(i);
        const int from = std::max(begin, line.textStart());
        const int to = std::min(begin + length, line.textStart() + line.textLength());
        if (from >= to) continue;
        const auto left = line.cursorToX(from), right = line.cursorToX(to);
        grounds.emplace_back(origin_.x() + std::min(left, right), origin_.y() + line.y(),
                             std::abs(right - left), lineHeight_);
    }
    return grounds;
}

int TextLines::placeAt(QPointF point) const {
    if (layout_.lineCount() == 0) return 0;
    point -= origin_;
    const auto row = std::clamp(static_cast<int>(std::floor(point.y() / lineHeight_)), 0,
                                layout_.lineCount() - 1);
    return layout_.lineAt(row).xToCursor(point.x());
}

}  // namespace app
