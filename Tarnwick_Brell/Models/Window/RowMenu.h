#pragma once

#include <functional>
#include <vector>

#include <QAbstractListModel>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Actions/ActionModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryActions.h"

namespace app {

struct RowMenuRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString keyText MEMBER keyText)

public:
    QString title{};
    QString symbol{};
    QString keyText{};

    bool operator==(const RowMenuRow&) const = default;
};

/// What can be done with a row of a panel or of a page's table: the actions for its story, else for
/// its link, those that the page offers, and copying its text.
class RowMenu : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    /// All must outlive it.
    RowMenu(const NewsDesk& desk, StoryActions& stories, ActionModel& actions,
            QObject* parent = nullptr);

    QAbstractListModel* rows() { return &rows_; }
    /// Fills the menu from what the row says of itself: `storyID`, `link`, `spokenText`, the
    /// symbol of its `quote` or its `subject`, and whether it `opens`. False when nothing can be
    /// done.
    Q_INVOKABLE bool show(const QVariantMap& facts);
    Q_INVOKABLE void run(int row);

signals:
    void openWanted();
    void linkWanted(const QString& link);
    void timelineWanted(const QString& storyID);
    void correctionWanted(const QString& storyID);
    /// A key of `makeSheet`.
    void sheetWanted(const QString& key);
    /// A sentence for the user.
    void noticed(const QString& sentence);

private:
    void add(RowMenuRow row, std::function<void()> run);
    void addStory(const QString& storyID);
    void addAction(DeskAction::Value action, bool isUndone, std::function<void()> run);
    void addLink(const QString& link);
    /// A new rule on the quote, else on what is logged of the subject.
    void addAlert(const QString& quote, const QString& subject);
    void addPageActions();
    void copy(const QString& text, const QString& notice);

    const NewsDesk& desk_;
    StoryActions& stories_;
    ActionModel& actions_;
    GadgetListModel<RowMenuRow> rows_;
    std::vector<RowMenuRow> shown_;
    std::vector<std::function<void()>> commands_;  ///< of the rows
};

}  // namespace app
