#pragma once

#include <QColor>
#include <QQuickTextDocument>
#include <QSyntaxHighlighter>
#include <qqmlregistration.h>

namespace app {

/// Shows Markdown that is typed as what it means, with its signs still there, but quiet.
class NoteLook : public QSyntaxHighlighter {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument* target READ target WRITE setTarget NOTIFY changed)
    Q_PROPERTY(QColor quiet MEMBER quiet_ NOTIFY changed)
    Q_PROPERTY(QColor link MEMBER link_ NOTIFY changed)
    Q_PROPERTY(QColor code MEMBER code_ NOTIFY changed)

public:
    explicit NoteLook(QObject* parent = nullptr);

    QQuickTextDocument* target() const { return target_; }
    void setTarget(QQuickTextDocument* target);

signals:
    void changed();

protected:
    void highlightBlock(const QString& text) override;

private:
    void mark(const QString& text, const char* pattern, const QTextCharFormat& format);

    QQuickTextDocument* target_ = nullptr;
    QColor quiet_;
    QColor link_;
    QColor code_;
};

}  // namespace app
