#include "Tarnwick_Brell/Models/Pages/RemovedPageModel.h"

#include <utility>

#include <QPointer>

#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Library/KeptSteps.h"

namespace app {

RemovedPageModel::RemovedPageModel(const DeskStores& stores) : PageModel(stores, tr("Removed")) {
    connect(&kept(), &LibraryStore::changed, this, &RemovedPageModel::read);
    connect(&news(), &NewsDesk::marksChanged, this, &RemovedPageModel::read);
    setCondition({.state = Loading});
    read();
}

void RemovedPageModel::read() {
    const QPointer<RemovedPageModel> self(this);
    kept().listRemoved([self](std::vector<KeptRow> removed) {
        if (self) self->show(removed);
    });
}

void RemovedPageModel::show(const std::vector<KeptRow>& removed) {
    removed_ = removed;
    std::vector<KeptLine> lines;
    for (const auto& row : removed) lines.push_back(removedLineOf(row, now()));
    rows_.setRows(std::move(lines));
    if (row_ >= rows_.rowCount()) row_ = rows_.rowCount() - 1;
    if (removed.empty()) {
        setCondition({.state = Empty,
                      .message = tr("Nothing was removed in the last 90 days."),
                      .hint = tr("Removed clips, notes, projects and saved stories can be "
                                 "restored here.")});
    } else {
        setCondition({.state = Ready, .fact = tr("%n removed", nullptr, rows_.rowCount())});
    }
}

void RemovedPageModel::setRow(int row) {
    if (row_ == row) return;
    row_ = row;
    emit changed();
}

void RemovedPageModel::restoreRow(int row) {
    const auto place = static_cast<std::size_t>(row);
    if (row < 0 || place >= removed_.size()) return;
    const auto& wanted = removed_[place];
    KeptSteps(stores()).restore(wanted.kind, wanted.id,
                                shortName(wanted.title.empty() ? wanted.line : wanted.title));
}

bool RemovedPageModel::offers(Action action) const {
    return action == DeskAction::RestoreKept && row_ >= 0;
}

void RemovedPageModel::perform(Action action) {
    if (action == DeskAction::RestoreKept) restoreRow(row_);
}

}  // namespace app
