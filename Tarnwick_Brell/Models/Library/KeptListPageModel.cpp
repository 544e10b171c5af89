#include "Tarnwick_Brell/Models/Library/KeptListPageModel.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <unordered_map>
#include <utility>

#include <QPointer>

namespace app {

namespace {

using namespace std::chrono_literals;

/// Words are typed, and notes saved, faster than a list needs to follow.
constexpr auto kReadPause = 80ms;

}  // namespace

KeptListPageModel::KeptListPageModel(const DeskStores& stores, const QString& title, KeptKind kind,
                                     std::string chosen)
    : PageModel(stores, title), kind_(kind), chosen_(std::move(chosen)) {
    soon_.setSingleShot(true);
    soon_.setInterval(kReadPause);
    connect(&soon_, &QTimer::timeout, this, &KeptListPageModel::readList);
    connect(&kept(), &LibraryStore::changed, this, &KeptListPageModel::read);
    setCondition({.state = Loading});
    readList();
}

void KeptListPageModel::read() {
    if (!soon_.isActive()) soon_.start();
}

void KeptListPageModel::readList() {
    const QPointer<KeptListPageModel> self(this);
    const auto request = ++asked_;
    if (words_.trimmed().isEmpty()) {
        kept().list({.kind = kind_}, [self, request](std::vector<KeptRow> found) {
            if (self && self->asked_ == request) self->showList(std::move(found));
        });
    } else {
        const auto take = [self, request](const std::vector<SearchHit>& hits) {
            if (!self || self->asked_ != request) return;
            std::vector<KeptLine> lines;
            for (const auto& hit : hits) lines.push_back(lineOf(hit, self->now()));
            self->listed_.clear();
            self->show(std::move(lines));
        };
        kept().search({.text = words_.toStdString(),
                       .lastWord = SearchText::LastWord::stillTyped,
                       .scope = scopeOf(kind_)},
                      take);
    }
}

/// While somebody types, one of ten thousand rows changes: the others keep their lines.
void KeptListPageModel::showList(std::vector<KeptRow> found) {
    std::unordered_map<std::string_view, std::size_t> places;
    for (std::size_t place = 0; place < listed_.size(); ++place)
        places.emplace(listed_[place].id, place);
    std::vector<KeptLine> lines;
    lines.reserve(found.size());
    for (const auto& row : found) {
        const auto known = places.find(row.id);
        const bool isSame = known != places.end() && listed_[known->second] == row;
        lines.push_back(isSame ? rows_.rows()[known->second] : lineOf(row, now()));
    }
    listed_ = std::move(found);
    show(std::move(lines));
}

void KeptListPageModel::tick() {
    // Times are told in relation to now.
    listed_.clear();
    read();
}

void KeptListPageModel::show(std::vector<KeptLine> lines) {
    const auto count = static_cast<int>(lines.size());
    const bool isSearch = !words_.trimmed().isEmpty();
    isShowing_ = true;
    rows_.setRows(std::move(lines));
    isShowing_ = false;
    const auto& rows = rows_.rows();
    auto at = std::ranges::find(rows, chosen_, &KeptLine::id);
    // What was removed makes room for its neighbour.
    if (at == rows.end() && !rows.empty()) at = rows.begin() + std::clamp(row_, 0, count - 1);
    row_ = at == rows.end() ? -1 : static_cast<int>(at - rows.begin());
    chosen_ = at == rows.end() ? std::string() : at->id;
    listMessage_ = count > 0 ? QString() : isSearch ? tr("Nothing found.") : nothingKept();
    setCondition({.state = Ready, .fact = factOf(count)});
    if (std::exchange(told_, chosen_) != chosen_) chosenChanged();
}

void KeptListPageModel::setRow(int row) {
    const auto* line = rows_.row(row);
    if (isShowing_ || !line || (row == row_ && line->id == chosen_)) return;
    row_ = row;
    chosen_ = told_ = line->id;
    chosenChanged();
    emit changed();
}

void KeptListPageModel::choose(std::string id) {
    chosen_ = std::move(id);
    read();
}

void KeptListPageModel::setWords(const QString& words) {
    if (words_ == words) return;
    words_ = words;
    read();
    emit changed();
}

KeptSteps KeptListPageModel::steps() const { return KeptSteps(stores()); }

void KeptListPageModel::removeRow(int row) {
    const auto* line = rows_.row(row);
    if (!line) return;
    QString name;
    for (const auto& part : line->title) name += part.text;
    steps().remove(kind_, line->id, shortName(name.toStdString()));
}

bool KeptListPageModel::offers(Action action) const {
    return action == DeskAction::RemoveKept && row_ >= 0;
}

void KeptListPageModel::perform(Action action) {
    if (action == DeskAction::RemoveKept) removeRow(row_);
}

}  // namespace app
