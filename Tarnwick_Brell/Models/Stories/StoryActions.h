#pragma once

#include <string>
#include <vector>

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Actions/DeskAction.h"
#include "Tarnwick_Brell/Models/Stories/SelectedStory.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"

namespace app {

/// What the user does with the selected story, and with all stories of the list. Changes of marks
/// are steps that can be undone.
class StoryActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes it.")

public:
    StoryActions(NewsDesk& desk, UndoStack& undo, StoryListModel& list, SelectedStory& selected,
                 QObject* parent = nullptr);

    Q_INVOKABLE void openInBrowser();
    Q_INVOKABLE void toggleSaved();
    Q_INVOKABLE void toggleRead();
    Q_INVOKABLE void copyLink();
    Q_INVOKABLE void copyCitation();
    Q_INVOKABLE void traceStory();
    /// Opens, saves or copies a story that another list names.
    void perform(app::DeskAction::Value action, const QString& storyID);
    /// Writes it into the folder for downloads.
    void savePDF();
    Q_INVOKABLE void markAllRead();
    /// The story for other programs, by kind of data: its address and a citation in Markdown.
    Q_INVOKABLE QVariantMap dragData(const QString& storyID) const;

signals:
    void noticed(const QString& sentence);
    void linkWanted(const QString& link);

private:
    void openInBrowser(const std::string& id, const QString& link);
    void toggleSaved(const std::string& id);
    void copyLink(const QString& link);
    void copyCitation(const QString& citation);
    std::vector<std::string> unreadIDs() const;

    NewsDesk& desk_;
    UndoStack& undo_;
    StoryListModel& list_;
    SelectedStory& selected_;
    ReaderModel& reader_;
};

}  // namespace app
