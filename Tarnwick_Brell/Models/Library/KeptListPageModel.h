#pragma once

#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QString>
#include <QTimer>

#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Library/KeptLine.h"
#include "Tarnwick_Brell/Models/Library/KeptSteps.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A page with a list of what the user keeps of one kind, all of it or what a search in it finds,
/// and one of the list that is chosen. The list is read again when anything that is kept changes.
class KeptListPageModel : public app::PageModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QString listMessage READ listMessage NOTIFY changed)

public:
    QAbstractListModel* rows() { return &rows_; }
    int row() const { return row_; }
    void setRow(int row);
    const QString& words() const { return words_; }
    void setWords(const QString& words);
    /// Stands in place of a list without rows: nothing is kept, or nothing found.
    const QString& listMessage() const { return listMessage_; }

    /// Removes the chosen one; it can be restored.
    Q_INVOKABLE virtual void removeRow(int row);

    bool offers(Action action) const override;
    void perform(Action action) override;
    void tick() override;
    void retry() override { read(); }

protected:
    KeptListPageModel(const DeskStores& stores, const QString& title, KeptKind kind,
                      std::string chosen);

    bool hasBar() const override { return true; }
    const std::string& chosenID() const { return chosen_; }
    /// Makes that one the chosen one once it is in the list.
    void choose(std::string id);
    const KeptLine* lineAt(int row) const { return rows_.row(row); }
    KeptSteps steps() const;
    void read();

    /// Another one is chosen; empty for none.
    virtual void chosenChanged() = 0;
    virtual QString nothingKept() const = 0;
    virtual QString factOf(int count) const = 0;

private:
    void readList();
    void showList(std::vector<KeptRow> found);
    void show(std::vector<KeptLine> lines);

    KeptKind kind_;
    GadgetListModel<KeptLine> rows_;
    /// What the lines are made of; empty when they have to be made anew.
    std::vector<KeptRow> listed_;
    int row_ = -1;
    bool isShowing_ = false;  ///< rows come and go: the view moves its index by itself
    std::string chosen_;
    std::string told_;  ///< of which chosenChanged was called last
    QString words_;
    QString listMessage_;
    std::uint64_t asked_ = 0;  ///< the newest reading wins
    QTimer soon_;
};

}  // namespace app
