#pragma once

#include <memory>

#include <QColor>
#include <QPointer>
#include <QQuickItem>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Interface/Controls/TextLines.h"

namespace app {

/// Lets the pointer select a part of a DeskText: a drag selects characters, a double click a word.
/// It lies behind the text, at the text's size, and takes no keys: those of the window go on
/// working while something is selected. Fingers scroll, as they do elsewhere.
class SelectableArea : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(QColor ground READ ground WRITE setGround NOTIFY groundChanged)
    Q_PROPERTY(QString selectedText READ selectedText NOTIFY selectionChanged)

public:
    explicit SelectableArea(QQuickItem* parent = nullptr);

    QQuickItem* target() const { return target_; }
    void setTarget(QQuickItem* target);
    QColor ground() const { return ground_; }
    void setGround(const QColor& ground);
    QString selectedText() const;

public slots:
    void clear() { select(0, 0); }

signals:
    void targetChanged();
    void groundChanged();
    void selectionChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData*) override;

private:
    void forgetLines();
    const TextLines& lines();
    void select(int anchor, int cursor);

    QPointer<QQuickItem> target_;
    QColor ground_;
    std::unique_ptr<TextLines> lines_;  ///< of the text as it is now; made when it is needed
    int anchor_ = 0;
    int cursor_ = 0;
};

}  // namespace app
