#pragma once

#include <string>

#include "Tarnwick_Brell/Models/Library/KeptListPageModel.h"
#include "Tarnwick_Brell/Models/Library/NoteEditor.h"

namespace app {

/// The user's notes, and the chosen one to be read and written.
class NotesPageModel final : public app::KeptListPageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(NotesPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(app::NoteEditor* editor READ editor CONSTANT)
    Q_PROPERTY(bool isDraft READ isDraft NOTIFY changed)
    Q_PROPERTY(QString about READ about NOTIFY aboutChanged)

public:
    /// The id of a note that is to be written.
    static constexpr const char* kNewNote = "new";

    NotesPageModel(const DeskStores& stores, std::string chosen);

    NoteEditor* editor() { return &editor_; }
    /// The note in the editor is a new one, which is not kept yet.
    bool isDraft() const { return isDraft_; }
    /// The headline of the story that the note is about; empty for none.
    const QString& about() const { return about_; }

    Q_INVOKABLE void addNote();
    Q_INVOKABLE void openRow(int row);
    /// Asks into which projects the chosen one goes.
    Q_INVOKABLE void putIntoProject();
    /// Opens the story that the note is about.
    Q_INVOKABLE void openStoryOfNote();

    bool offers(Action action) const override;
    void perform(Action action) override;

signals:
    void aboutChanged();
    /// The text is to have the focus.
    void typingWanted();

protected:
    void chosenChanged() override;
    QString nothingKept() const override;
    QString factOf(int count) const override { return tr("%n notes", nullptr, count); }

private:
    void showAbout();

    NoteEditor editor_;
    bool isDraft_ = false;
    std::string storyID_;
    QString about_;
};

}  // namespace app
