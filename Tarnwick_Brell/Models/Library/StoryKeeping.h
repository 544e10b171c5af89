#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Library/Clip.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Library/NoteEditor.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Stories/ReaderModel.h"

namespace app {

/// A clip of the story in the reader.
struct StoryClipRow {
    Q_GADGET
    Q_PROPERTY(QString quote MEMBER quote)
    Q_PROPERTY(QString note MEMBER note)
    Q_PROPERTY(QString place MEMBER place)

public:
    QString quote{};
    QString note{};
    QString place{};  ///< the key of the clip's Destination

    bool operator==(const StoryClipRow&) const = default;
};

/// What the user keeps of the story in the reader: its note, its clips, and the text that is
/// selected to be clipped.
class StoryKeeping : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one.")
    Q_PROPERTY(app::NoteEditor* note READ note CONSTANT)
    Q_PROPERTY(QAbstractListModel* clips READ clips CONSTANT)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(QString selection READ selection WRITE setSelection NOTIFY selectionChanged)

public:
    StoryKeeping(const DeskStores& stores, ReaderModel& reader, QObject* parent = nullptr);

    NoteEditor* note() { return &note_; }
    QAbstractListModel* clips() { return &clips_; }
    /// Neither a note nor a clip.
    bool isEmpty() const { return clips_.rowCount() == 0 && !note_.isOpen(); }
    /// The selected text of the reader, as it is drawn.
    const QString& selection() const { return selection_; }
    void setSelection(const QString& selection);

    /// Clips the selected text, or the headline when none is selected.
    Q_INVOKABLE void clip();
    /// Opens the story's note, a new one when it has none, and asks for the focus.
    Q_INVOKABLE void write();
    /// The selected text with its citation; false when none is selected.
    bool copySelection();

signals:
    void changed();
    void selectionChanged();
    void noticed(const QString& sentence);
    /// The note's text is to have the focus.
    void typingWanted();
    /// The view takes the selection back.
    void selectionDone();

private:
    void followStory();
    void read();
    void show(const std::vector<kit::Clip>& clips);
    void findNote(bool begins);
    std::optional<kit::Story> story() const;

    DeskStores stores_;
    ReaderModel& reader_;
    NoteEditor note_;
    GadgetListModel<StoryClipRow> clips_;
    QString selection_;
    std::string storyID_;
};

}  // namespace app
