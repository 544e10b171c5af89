#include "Tarnwick_Brell/Interface/Window/PageParts.h"

#include <utility>

#include <QPointer>
#include <QVariant>

#include "Tarnwick_Brell/Interface/Window/PageList.h"

namespace app {

namespace {

FindPart listPart(const PageList& list) {
    return {.rows = [list] { return list.count(); },
            .mentions =
                [list](const kit::TermFinder& finder, int row) {
                    return finder.admits(list.text(row).toStdString(), {}) && list.canChoose(row);
                },
            .show = [list](int row) { list.choose(row); },
            .chosen = list.item()->hasActiveFocus() ? list.current() : -1};
}

FindPart textPart(QQuickItem& item) {
    const QPointer<QQuickItem> text(&item);
    return {.rows = [] { return 1; },
            .mentions =
                [text](const kit::TermFinder& finder, int) {
                    if (!text) return false;
                    return finder.admits(text->property("text").toString().toStdString(), {});
                },
            .show =
                [text](int) {
                    if (text) scrollTo(*text);
                }};
}

class PartCollector {
public:
    PartCollector(FindInPage& find, QObject& watched) : find_(find), watched_(watched) {}

    void collect(QQuickItem& item) {
        if (!item.isVisible()) return;
        if (const auto list = PageList::of(item)) return collectList(item, *list);
        if (item.inherits("QQuickText")) parts_.push_back(textPart(item));
        for (auto* child : item.childItems()) collect(*child);
    }

    std::vector<FindPart> take() { return std::move(parts_); }

private:
    void collectList(QQuickItem& item, const PageList& list) {
        collectProperty(item, "head");
        parts_.push_back(listPart(list));
        collectProperty(item, "foot");
        const auto tell = [find = &find_] { find->pageChanged(); };
        QObject::connect(list.rows(), &QAbstractItemModel::modelReset, &watched_, tell);
        QObject::connect(list.rows(), &QAbstractItemModel::rowsInserted, &watched_, tell);
        QObject::connect(list.rows(), &QAbstractItemModel::rowsRemoved, &watched_, tell);
    }
    void collectProperty(QQuickItem& list, const char* name) {
        if (auto* item = list.property(name).value<QQuickItem*>()) collect(*item);
    }

    FindInPage& find_;
    QObject& watched_;
    std::vector<FindPart> parts_;
};

}  // namespace

std::vector<FindPart> partsOf(QQuickItem& page, FindInPage& find, QObject& watched) {
    PartCollector collector(find, watched);
    collector.collect(page);
    return collector.take();
}

std::vector<QQuickItem*> textsOf(QQuickItem& item) {
    std::vector<QQuickItem*> texts;
    if (!item.isVisible()) return texts;
    if (item.inherits("QQuickText")) texts.push_back(&item);
    for (auto* child : item.childItems()) {
        const auto below = textsOf(*child);
        texts.insert(texts.end(), below.begin(), below.end());
    }
    return texts;
}

}  // namespace app
