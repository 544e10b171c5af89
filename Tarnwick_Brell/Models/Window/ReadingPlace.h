#pragma once

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Stories/SelectedStory.h"
#include "Tarnwick_Brell/Models/Window/WindowState.h"

namespace app {

/// The story in the reader and how far the list is scrolled, kept while the desk runs. A run that
/// did not end in order is followed by one that shows the same again.
class ReadingPlace : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one.")

public:
    /// All must outlive it.
    ReadingPlace(NewsDesk& desk, StoryListController& stories, SelectedStory& selected,
                 WindowState& state, QObject* parent = nullptr);

    /// The first row of the list that can be seen.
    Q_INVOKABLE void setTopRow(int row);

signals:
    void topRowWanted(int row);

private:
    void restore();
    void endRestoring() { isRestoring_ = false; }

    NewsDesk& desk_;
    StoryListController& stories_;
    SelectedStory& selected_;
    WindowState& state_;
    QString place_;
    QString story_;
    QString topStory_;
    bool isRestoring_ = false;
};

}  // namespace app
