#include "Tarnwick_Brell/Models/Library/StoryKeeping.h"

#include <utility>

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

#include "NewsroomKit/Library/Citation.h"
#include "NewsroomKit/Library/ClipMaking.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Library/KeptSteps.h"
#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

constexpr int kShownQuote = 1000;

}  // namespace

StoryKeeping::StoryKeeping(const DeskStores& stores, ReaderModel& reader, QObject* parent)
    : QObject(parent), stores_(stores), reader_(reader), note_(stores) {
    connect(&reader_, &ReaderModel::storyChanged, this, &StoryKeeping::followStory);
    connect(&stores_.kept, &LibraryStore::changed, this, &StoryKeeping::read);
    connect(&note_, &NoteEditor::changed, this, &StoryKeeping::changed);
    followStory();
}

/// The reader tells of changes of the same story too.
void StoryKeeping::followStory() {
    auto id = reader_.storyID().toStdString();
    if (std::exchange(storyID_, std::move(id)) == storyID_) return;
    note_.close();
    setSelection({});
    clips_.setRows({});
    emit changed();
    read();
}

void StoryKeeping::read() {
    if (storyID_.empty()) return;
    const QPointer<StoryKeeping> self(this);
    stores_.kept.readAll<kit::Clip>({.story = storyID_},
                                    [self, id = storyID_](const std::vector<kit::Clip>& clips) {
                                        if (self && self->storyID_ == id) self->show(clips);
                                    });
    if (!note_.isOpen()) findNote(false);
}

void StoryKeeping::show(const std::vector<kit::Clip>& clips) {
    std::vector<StoryClipRow> rows;
    for (const auto& clip : clips) {
        rows.push_back(
            {.quote = bodyText(clip.quote, kShownQuote),
             .note = bodyText(clip.note, kShownQuote),
             .place = LibraryPlace{LibraryPlace::Page::clips, clip.id}.destination().key()});
    }
    clips_.setRows(std::move(rows));
    emit changed();
}

/// The story's latest note; with `begins` a new one when it has none.
void StoryKeeping::findNote(bool begins) {
    const QPointer<StoryKeeping> self(this);
    stores_.kept.list({.kind = KeptKind::note, .story = storyID_, .most = 1},
                      [self, id = storyID_, begins](const std::vector<KeptRow>& notes) {
                          if (!self || self->storyID_ != id || self->note_.isOpen()) return;
                          if (!notes.empty()) {
                              self->note_.open(notes.front().id);
                          } else if (begins) {
                              self->note_.begin({.storyIDs = {id}});
                          }
                          if (begins) emit self->typingWanted();
                      });
}

void StoryKeeping::setSelection(const QString& selection) {
    if (std::exchange(selection_, selection) != selection) emit selectionChanged();
}

std::optional<kit::Story> StoryKeeping::story() const {
    const auto* packed = stores_.news.stories().find(storyID_);
    if (!packed) return std::nullopt;
    return packed->unpacked().story;
}

void StoryKeeping::clip() {
    const auto clipped = story();
    if (!clipped) return emit noticed(tr("There is no story to clip from."));
    const auto passage = selection_.trimmed();
    KeptSteps(stores_).clip(*clipped, passage.isEmpty() ? clipped->title : passage.toStdString());
    emit selectionDone();
}

void StoryKeeping::write() {
    if (storyID_.empty()) return;
    if (note_.isOpen()) return emit typingWanted();
    findNote(true);
}

bool StoryKeeping::copySelection() {
    if (selection_.trimmed().isEmpty()) return false;
    const auto quoted = story();
    if (!quoted) return false;
    auto clip = kit::madeClip(*quoted, nullptr, selection_.trimmed().toStdString());
    clip.accessedAt = stores_.clock();
    QGuiApplication::clipboard()->setText(QString::fromStdString(
        kit::quoteWithCitation(clip, kit::CitationStyle::plain, kit::TimeZone::here())));
    emit noticed(tr("Quote and citation copied."));
    emit selectionDone();
    return true;
}

}  // namespace app
