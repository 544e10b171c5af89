#pragma once

#include <memory>
#include <vector>

#include <QColor>
#include <QFont>
#include <QMetaObject>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Window/FindInPage.h"

namespace app {

/// Lies over a page and gives the words that are to be found a ground of their own, wherever a text
/// shows them. For pages that are not the list of stories it also says what there is to search.
class FindMarks : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(app::FindInPage* find READ find WRITE setFind NOTIFY changed REQUIRED)
    Q_PROPERTY(QQuickItem* page MEMBER page_ NOTIFY changed REQUIRED)
    Q_PROPERTY(QQuickItem* detail MEMBER detail_ NOTIFY changed)
    Q_PROPERTY(bool searchesPage MEMBER searchesPage_ NOTIFY changed)
    Q_PROPERTY(QColor ground MEMBER ground_ NOTIFY changed)

public:
    explicit FindMarks(QQuickItem* parent = nullptr);
    ~FindMarks() override;

    FindInPage* find() const { return find_; }
    void setFind(FindInPage* find);

    void paint(QPainter* painter) override;

signals:
    void changed();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    /// A text on the screen in which words were found.
    struct Shown {
        QString text{};
        QFont font{};
        QColor color{};
        QRectF rect{};  ///< of its lines
        QRectF clip{};
        double lineHeight = 0;
        int lines = 1;
        bool wraps = false;
        Qt::Alignment alignment{};
        std::vector<std::pair<int, int>> ranges{};

        bool operator==(const Shown&) const = default;
    };

    Shown shownOf(const QQuickItem& text, QPointF at, const QRectF& clip) const;
    void visit(QQuickItem& item, QPointF at, QRectF clip, std::vector<Shown>& shown) const;
    void follow();
    void revealDetail();
    void setParts();

    QPointer<FindInPage> find_;
    QPointer<QQuickItem> page_;
    QPointer<QQuickItem> detail_;  ///< scrolls to its first match when another match is chosen
    bool searchesPage_ = false;
    QColor ground_;
    std::vector<Shown> shown_;
    int framesUntilReveal_ = 0;
    std::unique_ptr<QObject> watched_;  ///< ends the connections to the page's lists
    QMetaObject::Connection frames_;
};

}  // namespace app
