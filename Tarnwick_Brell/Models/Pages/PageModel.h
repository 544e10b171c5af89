#pragma once

#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Actions/DeskAction.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

namespace app {

/// A page of the desk that is not a grid of panels: the sources, a tracker. It has the states of a
/// panel and is drawn by the file of its name in Interface/Pages: SourcesPage.qml for a
/// SourcesPageModel. The page's content is made where a panel's is, in the core.
class PageModel : public app::PanelModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString barFile READ barFile CONSTANT)

public:
    PageModel(const DeskStores& stores, const QString& title);

    const QString& title() const { return title_; }
    /// The QML file of what the page has in the toolbar, which shows `fact` as the age of its data:
    /// SourcesPageBar.qml for a SourcesPageModel that has one, else empty.
    QString barFile() const;

    /// Actions of the window that the page offers now, beside moving in its list; `changed` tells
    /// that they are others.
    virtual bool offers(Action) const { return false; }
    virtual void perform(Action) {}

    /// Its list shows clusters or stories, whichever the user wants at this place.
    virtual bool hasClusters() const { return false; }
    virtual void setClustered(bool) {}

signals:
    /// A sentence for the user.
    void noticed(const QString& sentence);
    /// The page asks for a sheet; see SheetModel.
    void sheetWanted(const QString& key);
    /// The user switches between clusters and stories.
    void clustersWanted(bool wanted);
    /// The page leads elsewhere: a key of `Destination`.
    void placeWanted(const QString& key);

protected:
    virtual bool hasBar() const { return false; }
    const DeskStores& stores() const { return stores_; }

private:
    DeskStores stores_;
    QString title_;
};

}  // namespace app
