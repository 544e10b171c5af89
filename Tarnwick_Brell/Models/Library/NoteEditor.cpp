#include "Tarnwick_Brell/Models/Library/NoteEditor.h"

#include <utility>

#include <QPointer>

#include "NewsroomKit/Newsrooms/UUID.h"
#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

NoteEditor::NoteEditor(const DeskStores& stores, QObject* parent)
    : QObject(parent), stores_(stores) {
    soon_.setSingleShot(true);
    soon_.setInterval(kSavedWithin);
    connect(&soon_, &QTimer::timeout, this, &NoteEditor::save);
    connect(&stores_.kept, &LibraryStore::changed, this, &NoteEditor::follow);
    connect(&stores_.kept, &LibraryStore::failed, this, [this](const QString& sentence) {
        if (!isSaving_) return;
        isSaving_ = false;
        isUnsaved_ = true;
        setFact(tr("Not saved: %1").arg(sentence));
    });
}

NoteEditor::~NoteEditor() { save(); }

void NoteEditor::open(const std::string& id) {
    if (note_ && note_->id == id) return;
    close();
    awaited_ = id;
    const QPointer<NoteEditor> self(this);
    stores_.kept.read<kit::Note>(id, [self, id](std::optional<kit::Note> note) {
        if (self && self->awaited_ == id) self->show(std::move(note));
    });
}

void NoteEditor::begin(kit::Note draft) {
    close();
    draft.id.clear();
    show(std::move(draft));
}

void NoteEditor::close() {
    save();
    awaited_.clear();
    show(std::nullopt);
}

void NoteEditor::show(std::optional<kit::Note> note) {
    awaited_.clear();
    note_ = std::move(note);
    isUnsaved_ = isSaving_ = false;
    fact_ = note_ && !note_->id.empty()
                ? tr("Saved %1").arg(momentText(note_->changedAt, stores_.clock()))
                : QString();
    versions_.clear();
    versionNames_.clear();
    emit changed();
    emit versionsChanged();
    readVersions();
}

QString NoteEditor::title() const {
    return note_ ? QString::fromStdString(note_->title) : QString();
}

QString NoteEditor::text() const { return note_ ? QString::fromStdString(note_->text) : QString(); }

void NoteEditor::setTitle(const QString& title) {
    if (!note_ || title == this->title()) return;
    note_->title = title.toStdString();
    saveSoon();
}

void NoteEditor::setText(const QString& text) {
    if (!note_ || text == this->text()) return;
    note_->text = text.toStdString();
    saveSoon();
}

/// Counted from the first character that is not saved: who types without a pause is saved too.
void NoteEditor::saveSoon() {
    isUnsaved_ = true;
    if (!soon_.isActive()) soon_.start();
}

void NoteEditor::save() {
    soon_.stop();
    if (!note_ || !std::exchange(isUnsaved_, false)) return;
    const bool isNew = note_->id.empty();
    // The next key must not make a second note.
    if (isNew) note_->id = kit::UUID::random().text();
    isSaving_ = true;
    const QPointer<NoteEditor> self(this);
    stores_.kept.saveTyped(*note_, [self, id = note_->id, isNew](const kit::Note& written) {
        if (!self || self->id() != id) return;
        self->isSaving_ = false;
        self->note_->changedAt = written.changedAt;
        self->note_->createdAt = written.createdAt;
        self->setFact(tr("Saved %1").arg(momentText(written.changedAt, self->stores_.clock())));
        if (isNew) emit self->kept();
    });
}

/// Another page, window or program may have changed the note; what is typed here and not saved yet
/// stands.
void NoteEditor::follow() {
    if (!note_ || note_->id.empty() || isUnsaved_ || isSaving_) return;
    const QPointer<NoteEditor> self(this);
    stores_.kept.read<kit::Note>(note_->id, [self, id = note_->id](std::optional<kit::Note> note) {
        if (!self || self->id() != id || self->isUnsaved_ || self->isSaving_) return;
        if (!note) return self->show(std::nullopt);
        if (*note == *self->note_) return self->readVersions();
        self->note_ = std::move(note);
        emit self->changed();
        self->readVersions();
    });
}

void NoteEditor::readVersions() {
    if (!note_ || note_->id.empty()) return;
    const QPointer<NoteEditor> self(this);
    stores_.kept.listVersions(note_->id, [self,
                                          id = note_->id](std::vector<kit::NoteVersion> versions) {
        if (!self || self->id() != id || self->versions_ == versions) return;
        self->versions_ = std::move(versions);
        self->versionNames_.clear();
        for (const auto& version : self->versions_) {
            self->versionNames_ << tr("%1: %2").arg(
                momentText(version.replacedAt, self->stores_.clock()), titleText(version.text, 60));
        }
        emit self->versionsChanged();
    });
}

void NoteEditor::useVersion(int version) {
    const auto place = static_cast<std::size_t>(version);
    if (!note_ || version < 0 || place >= versions_.size()) return;
    save();
    const auto before = *note_;
    auto after = before;
    after.text = versions_[place].text;
    auto& kept = stores_.kept;
    kept.put<kit::Note>(after);
    stores_.undo.push({.text = tr("Go back to an earlier text"),
                       .undo = [&kept, before] { kept.put<kit::Note>(before); },
                       .redo = [&kept, after] { kept.put<kit::Note>(after); },
                       .notice = tr("The earlier text is back.")});
}

void NoteEditor::setFact(const QString& fact) {
    if (fact_ == fact) return;
    fact_ = fact;
    emit changed();
}

}  // namespace app
