#include "Tarnwick_Brell/Models/Panels/ClipsPanelModel.h"

#include <utility>

#include <QPointer>

#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/KeptText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

/// More than the highest panel shows.
constexpr std::size_t kMostClips = 60;

}  // namespace

ClipsPanelModel::ClipsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : ChangesPanelModel(stores, panel) {
    connect(&kept(), &LibraryStore::changed, this, &ClipsPanelModel::read);
    setCondition({.state = Loading});
    read();
}

void ClipsPanelModel::read() {
    const QPointer<ClipsPanelModel> self(this);
    kept().readAll<kit::Clip>({.most = kMostClips}, [self](const std::vector<kit::Clip>& clips) {
        if (self) self->show(clips);
    });
}

void ClipsPanelModel::show(const std::vector<kit::Clip>& clips) {
    std::vector<ChangeRow> rows;
    for (const auto& clip : clips) {
        ChangeRow row{.title = quoteText(clip),
                      .detail = clipSourceText(clip, now()),
                      .when = ageText(clip.accessedAt, now())};
        row.spokenText = spokenRow({row.title, row.detail});
        rows.push_back(std::move(row));
    }
    const bool isEmpty = rows.empty();
    rows_.setRows(std::move(rows));
    setCondition({.state = isEmpty ? Empty : Ready,
                  .message = isEmpty ? noRowText(kit::PanelKind::clips) : QString()});
}

}  // namespace app
