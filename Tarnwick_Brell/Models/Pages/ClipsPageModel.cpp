#include "Tarnwick_Brell/Models/Pages/ClipsPageModel.h"

#include <utility>

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

#include "NewsroomKit/Queries/TermList.h"
#include "Tarnwick_Brell/Models/Library/NoteEditor.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

ClipsPageModel::ClipsPageModel(const DeskStores& stores, std::string chosen)
    : KeptListPageModel(stores, tr("Clips"), KeptKind::clip, std::move(chosen)) {
    saving_.setSingleShot(true);
    saving_.setInterval(NoteEditor::kSavedWithin);
    connect(&saving_, &QTimer::timeout, this, [this] {
        if (clip_) kept().put<kit::Clip>(*clip_);
    });
    // The chosen one may be changed elsewhere.
    connect(&kept(), &LibraryStore::changed, this, &ClipsPageModel::chosenChanged);
}

ClipsPageModel::~ClipsPageModel() { saveNote(); }

void ClipsPageModel::chosenChanged() {
    // What is typed now stands.
    if (clip_ && clip_->id == chosenID() && saving_.isActive()) return;
    saveNote();
    const QPointer<ClipsPageModel> self(this);
    kept().read<kit::Clip>(chosenID(), [self, id = chosenID()](std::optional<kit::Clip> clip) {
        if (!self || self->chosenID() != id || self->saving_.isActive() || self->clip_ == clip)
            return;
        self->clip_ = std::move(clip);
        emit self->changed();
    });
}

QString ClipsPageModel::nothingKept() const {
    return tr(
        "You have clipped nothing yet. x in the reader clips the selected text with its "
        "citation.");
}

QString ClipsPageModel::quote() const {
    return clip_ ? bodyText(clip_->quote, static_cast<int>(kit::kMostBytesOfQuote)) : QString();
}

QString ClipsPageModel::headline() const {
    return clip_ ? titleText(clip_->title, kTitleCharacters) : QString();
}

QString ClipsPageModel::source() const {
    if (!clip_) return {};
    auto source = titleText(clip_->sourceName);
    if (clip_->author) source = tr("%1, %2").arg(source, titleText(*clip_->author));
    if (clip_->publishedAt)
        source = tr("%1 · published %2").arg(source, momentText(*clip_->publishedAt, now()));
    return tr("%1 · clipped %2").arg(source, momentText(clip_->accessedAt, now()));
}

QString ClipsPageModel::citation() const {
    if (!clip_) return {};
    return bodyText(
        kit::citation(kit::citedWork(*clip_), kit::CitationStyle::plain, kit::TimeZone::here()),
        2000);
}

QString ClipsPageModel::tags() const {
    QStringList tags;
    if (clip_) {
        for (const auto& tag : clip_->tags) tags << titleText(tag);
    }
    return tags.join(QStringLiteral(", "));
}

QString ClipsPageModel::note() const {
    return clip_ ? QString::fromStdString(clip_->note) : QString();
}

QStringList ClipsPageModel::styles() const {
    QStringList names;
    for (const auto& row : kit::enumTable<kit::CitationStyle>) names << labelText(row.label);
    return names;
}

void ClipsPageModel::setNote(const QString& note) {
    if (!clip_ || note == this->note()) return;
    clip_->note = note.toStdString();
    if (!saving_.isActive()) saving_.start();
}

void ClipsPageModel::saveNote() {
    if (!saving_.isActive() || !clip_) return;
    saving_.stop();
    kept().put<kit::Clip>(*clip_);
}

void ClipsPageModel::setTags(const QString& tags) {
    if (!clip_) return;
    const auto before = *clip_;
    auto after = before;
    after.tags = kit::separatedTerms(tags.toStdString());
    if (after == before) return;
    auto& store = kept();
    store.put<kit::Clip>(after);
    stores().undo.push({.text = tr("Change the tags of a clip"),
                        .undo = [&store, before] { store.put<kit::Clip>(before); },
                        .redo = [&store, after] { store.put<kit::Clip>(after); }});
}

void ClipsPageModel::openRow(int row) {
    setRow(row);
    if (!clip_) return;
    if (news().stories().find(clip_->storyID)) {
        openStory(plainText(clip_->storyID));
    } else if (const auto link = openableLink(clip_->link); !link.isEmpty()) {
        openLink(link);
    } else {
        emit noticed(tr("The story is no longer here, and its address can't be opened."));
    }
}

void ClipsPageModel::copy(int style) {
    const auto& table = kit::enumTable<kit::CitationStyle>;
    const auto place = static_cast<std::size_t>(style);
    if (!clip_ || style < 0 || place >= table.size()) return;
    QGuiApplication::clipboard()->setText(QString::fromStdString(
        kit::quoteWithCitation(*clip_, table[place].value, kit::TimeZone::here())));
    emit noticed(tr("Quote and citation copied."));
}

void ClipsPageModel::putIntoProject() {
    emit sheetWanted(QStringLiteral("put-into-project:clip:") + plainText(chosenID()));
}

bool ClipsPageModel::offers(Action action) const {
    if (action == DeskAction::CopyCitation || action == DeskAction::PutIntoProject)
        return clip_.has_value();
    return KeptListPageModel::offers(action);
}

void ClipsPageModel::perform(Action action) {
    if (action == DeskAction::CopyCitation) return copy(0);
    if (action == DeskAction::PutIntoProject) return putIntoProject();
    KeptListPageModel::perform(action);
}

}  // namespace app
