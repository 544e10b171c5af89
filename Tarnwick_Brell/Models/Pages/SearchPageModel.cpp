#include "Tarnwick_Brell/Models/Pages/SearchPageModel.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <QPointer>

#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr auto kSearchPause = 80ms;

}  // namespace

SearchPageModel::SearchPageModel(const DeskStores& stores, std::string words)
    : PageModel(stores, tr("Search")), words_(QString::fromStdString(words)) {
    soon_.setSingleShot(true);
    soon_.setInterval(kSearchPause);
    connect(&soon_, &QTimer::timeout, this, &SearchPageModel::find);
    setCondition({.state = Ready});
    find();
}

QStringList SearchPageModel::scopes() const {
    QStringList names;
    for (const auto& row : kit::enumTable<SearchScope>) names << labelText(row.label);
    return names;
}

void SearchPageModel::setScope(int scope) {
    if (scope < 0 || scope >= scopes().size() || scope == this->scope()) return;
    scope_ = kit::enumTable<SearchScope>[static_cast<std::size_t>(scope)].value;
    find();
    emit changed();
}

void SearchPageModel::setWords(const QString& words) {
    if (words_ == words) return;
    words_ = words;
    soon_.start();
    emit changed();
}

void SearchPageModel::find() {
    const auto request = ++asked_;
    if (words_.trimmed().isEmpty()) return show({});
    const QPointer<SearchPageModel> self(this);
    kept().search({.text = words_.toStdString(),
                   .lastWord = SearchText::LastWord::stillTyped,
                   .scope = scope_},
                  [self, request](const std::vector<SearchHit>& hits) {
                      if (self && self->asked_ == request) self->show(hits);
                  });
}

void SearchPageModel::show(const std::vector<SearchHit>& hits) {
    std::vector<KeptLine> lines;
    lines.reserve(hits.size());
    for (const auto& hit : hits) lines.push_back(lineOf(hit, now()));
    rows_.setRows(std::move(lines));
    row_ = hits.empty() ? -1 : std::clamp(row_, 0, rows_.rowCount() - 1);
    listMessage_ = !hits.empty()                ? QString()
                   : words_.trimmed().isEmpty() ? tr("Searches stories, saved stories, notes, "
                                                     "clips, projects and what the trackers noted.")
                                                : tr("Nothing found.");
    setCondition({.state = Ready,
                  .fact = hits.empty() ? QString() : tr("%n found", nullptr, rows_.rowCount())});
}

void SearchPageModel::setRow(int row) {
    if (row_ == row) return;
    row_ = row;
    emit changed();
}

void SearchPageModel::openRow(int row) {
    const auto* line = rows_.row(row);
    if (!line) return;
    const auto go = [&](LibraryPlace::Page page) {
        emit placeWanted(LibraryPlace{page, line->id}.destination().key());
    };
    switch (line->scope) {
        case SearchScope::notes: return go(LibraryPlace::Page::notes);
        case SearchScope::clips: return go(LibraryPlace::Page::clips);
        case SearchScope::projects: return go(LibraryPlace::Page::project);
        case SearchScope::loggedSignals:
            return emit placeWanted(
                Destination{Destination::Kind::page, QStringLiteral("activity")}.key());
        case SearchScope::all:
        case SearchScope::saved:
        case SearchScope::stories: break;
    }
    if (news().stories().find(line->id)) {
        openStory(plainText(line->id));
    } else {
        emit noticed(tr("This story is no longer on the wire; brell search shows what was kept."));
    }
}

}  // namespace app
