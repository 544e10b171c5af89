#pragma once

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Stories/SelectedStory.h"

namespace app {

/// What the user does with the selected story, and with all stories of the list.
class StoryActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes it.")

public:
    StoryActions(NewsDesk& desk, StoryListModel& list, SelectedStory& selected,
                 QObject* parent = nullptr);

    Q_INVOKABLE void openInBrowser();
    Q_INVOKABLE void toggleSaved();
    Q_INVOKABLE void toggleRead();
    Q_INVOKABLE void copyLink();
    Q_INVOKABLE void copyCitation();
    Q_INVOKABLE void traceStory();
    Q_INVOKABLE void markAllRead();
    /// Undoes the last change of marks. False when there is none.
    Q_INVOKABLE bool undo();
    bool canUndo() const { return desk_.canUndo(); }

signals:
    /// A change of marks that can be undone, as a sentence for the user.
    void marked(const QString& sentence);
    void noticed(const QString& sentence);
    void linkWanted(const QString& link);

private:
    NewsDesk& desk_;
    StoryListModel& list_;
    SelectedStory& selected_;
    ReaderModel& reader_;
};

}  // namespace app
