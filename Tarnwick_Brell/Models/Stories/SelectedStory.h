#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <QObject>
#include <QTimer>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Stories/ReaderModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryListController.h"

namespace app {

/// The story that is selected in the list and shown in the reader. It counts as read after a
/// while there.
class SelectedStory : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one selected story.")
    Q_PROPERTY(app::ReaderModel* reader READ reader CONSTANT)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY rowChanged)
    Q_PROPERTY(bool hasStory READ hasStory NOTIFY rowChanged)

public:
    SelectedStory(NewsDesk& desk, StoryListController& stories, const Defaults& defaults,
                  kit::Clock clock, QObject* parent = nullptr);

    ReaderModel* reader() { return &reader_; }
    /// -1 when the story is not in the list.
    int row() const { return row_; }
    void setRow(int row);
    bool hasStory() const { return reader_.hasStory(); }
    std::string id() const { return reader_.storyID().toStdString(); }

    /// Shows the story in the reader, and selects it where it is in the list.
    Q_INVOKABLE void open(const QString& storyID);
    Q_INVOKABLE void step(int by);
    /// Marks the story read and selects the next unread one in that direction. False when there
    /// is none.
    Q_INVOKABLE bool stepUnread(int direction);

    void markRead();
    /// The story does not count as read until it is selected again.
    void stopReading() { reading_.stop(); }

signals:
    void rowChanged();

private:
    void select(std::optional<std::int64_t> number);
    void updateRow();

    NewsDesk& desk_;
    StoryListModel& list_;
    ReaderModel reader_;
    int row_ = -1;
    QTimer reading_;
};

}  // namespace app
