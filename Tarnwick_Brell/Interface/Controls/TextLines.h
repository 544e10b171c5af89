#pragma once

#include <utility>
#include <vector>

#include <QQuickItem>
#include <QRectF>
#include <QTextLayout>

namespace app {

/// The lines of a Text of Qt Quick as it breaks them itself, which it tells nobody.
class TextLines {
public:
    /// `text` is a DeskText.
    explicit TextLines(const QQuickItem& text);

    /// Where characters from `begin` on lie, a rectangle a line, in the coordinates of the text.
    std::vector<QRectF> grounds(std::pair<int, int> range) const;
    /// The place between two characters that is nearest to the point.
    int placeAt(QPointF point) const;
    const QString& text() const { return text_; }

private:
    QString text_;
    QPointF origin_;
    double lineHeight_ = 1;
    QTextLayout layout_;
};

}  // namespace app
