#pragma once

#include <memory>
#include <vector>

#include <QAbstractListModel>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Actions/ActionTable.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// One action as views show it.
struct ActionRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(app::DeskAction::Value action MEMBER action)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString groupTitle MEMBER groupTitle)
    Q_PROPERTY(QStringList keyCaps MEMBER keyCaps)
    Q_PROPERTY(QStringList otherKeyCaps MEMBER otherKeyCaps)
    Q_PROPERTY(QString keyText READ keyText)
    Q_PROPERTY(QString spokenKeys MEMBER spokenKeys)
    Q_PROPERTY(QStringList shortcuts MEMBER shortcuts)
    Q_PROPERTY(QStringList shortcutsInText MEMBER shortcutsInText)
    Q_PROPERTY(bool isEnabled MEMBER isEnabled)
    Q_PROPERTY(bool repeats MEMBER repeats)

public:
    /// The first key in one piece, for menus and tips.
    QString keyText() const { return keyCaps.join(u' '); }

    Action action{};
    QString title{};
    QString symbol{};
    QString groupTitle{};
    QStringList keyCaps{};       ///< of the first key
    QStringList otherKeyCaps{};  ///< of the second one, if any
    QString spokenKeys{};
    QStringList shortcuts{};        ///< without the keys of the list of stories
    QStringList shortcutsInText{};  ///< those that also work while a text field has the focus
    bool isEnabled = true;
    bool repeats = false;  ///< while its key is held down

    bool operator==(const ActionRow&) const = default;
};

/// The actions of one group.
struct ActionGroupRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QAbstractListModel* actions MEMBER actions)

public:
    QString title{};
    QAbstractListModel* actions = nullptr;

    bool operator==(const ActionGroupRow&) const = default;
};

/// The window's actions. Whoever shows the stories tells what can be done with them; whoever
/// carries actions out listens to `triggered`.
class ActionModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one list of actions.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* groups READ groups CONSTANT)
    Q_PROPERTY(QAbstractListModel* storyRows READ storyRows CONSTANT)
    Q_PROPERTY(bool hasStory MEMBER hasStory_ NOTIFY contextChanged)
    Q_PROPERTY(bool storyIsSaved MEMBER storyIsSaved_ NOTIFY contextChanged)
    Q_PROPERTY(bool storyIsRead MEMBER storyIsRead_ NOTIFY contextChanged)
    Q_PROPERTY(bool isStoryList MEMBER isStoryList_ NOTIFY contextChanged)
    Q_PROPERTY(bool hasClusters MEMBER hasClusters_ NOTIFY contextChanged)
    Q_PROPERTY(bool showsClusters MEMBER showsClusters_ NOTIFY contextChanged)
    Q_PROPERTY(bool showsSetAside MEMBER showsSetAside_ NOTIFY contextChanged)
    Q_PROPERTY(bool showsPictures MEMBER showsPictures_ NOTIFY contextChanged)
    Q_PROPERTY(bool isRefreshing MEMBER isRefreshing_ NOTIFY contextChanged)
    Q_PROPERTY(bool hasNewsroom MEMBER hasNewsroom_ NOTIFY contextChanged)
    Q_PROPERTY(bool isEditing MEMBER isEditing_ NOTIFY contextChanged)
    Q_PROPERTY(bool hasArrivals MEMBER hasArrivals_ NOTIFY contextChanged)
    Q_PROPERTY(bool canUndo MEMBER canUndo_ NOTIFY contextChanged)
    Q_PROPERTY(bool isLive MEMBER isLive_ NOTIFY contextChanged)
    Q_PROPERTY(bool canRedo MEMBER canRedo_ NOTIFY contextChanged)
    Q_PROPERTY(QString undoText MEMBER undoText_ NOTIFY contextChanged)
    Q_PROPERTY(QString redoText MEMBER redoText_ NOTIFY contextChanged)

public:
    explicit ActionModel(QObject* parent = nullptr);

    QAbstractListModel* rows() { return &rows_; }
    /// For the sheet of keys: groups of actions, with keys of a kind in one row.
    QAbstractListModel* groups() { return &groups_; }
    /// What can be done with the story, for its menu.
    QAbstractListModel* storyRows() { return groupRows_.front().get(); }
    const std::vector<ActionRow>& list() const { return rows_.rows(); }
    const ActionRow& row(Action action) const;

    Q_INVOKABLE QString title(app::DeskAction::Value action) const { return row(action).title; }
    Q_INVOKABLE QString keyText(app::DeskAction::Value action) const {
        return row(action).keyText();
    }
    /// The actions that the page offers now.
    void setOfPage(const QSet<int>& actions);
    /// Does nothing when the action can't be carried out now.
    Q_INVOKABLE void trigger(app::DeskAction::Value action);
    Q_INVOKABLE void triggerStoryRow(int row);

signals:
    void contextChanged();
    void triggered(app::DeskAction::Value action);

private:
    void refresh();
    bool isEnabled(const ActionEntry& entry) const;
    bool isDone(Action action) const;
    QString titleFor(const ActionEntry& entry) const;
    ActionRow rowFor(const ActionEntry& entry) const;

    bool hasStory_ = false;
    bool storyIsSaved_ = false;
    bool storyIsRead_ = false;
    bool isStoryList_ = false;
    bool hasClusters_ = false;
    bool showsClusters_ = false;
    bool showsSetAside_ = false;
    bool showsPictures_ = false;
    bool isRefreshing_ = false;
    bool hasNewsroom_ = false;
    bool isEditing_ = false;
    bool hasArrivals_ = false;
    bool canUndo_ = false;
    bool isLive_ = false;
    QSet<int> ofPage_;
    bool canRedo_ = false;
    QString undoText_;  ///< the step's name; empty for a mark that is no step of this window
    QString redoText_;
    GadgetListModel<ActionRow> rows_;
    std::vector<std::unique_ptr<GadgetListModel<ActionRow>>> groupRows_;  ///< in the groups' order
    GadgetListModel<ActionGroupRow> groups_;
};

}  // namespace app
