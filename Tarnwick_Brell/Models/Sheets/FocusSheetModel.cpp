#include "Tarnwick_Brell/Models/Sheets/FocusSheetModel.h"

#include <utility>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "Tarnwick_Brell/Models/Newsrooms/TypedTerms.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

FocusSheetModel::FocusSheetModel(const DeskStores& stores, const QString& subject)
    : stores_(stores),
      steps_(stores.newsrooms, stores.undo),
      newsroomID_(subject.toStdString()),
      count_(stores) {
    connect(&count_, &QueryCount::changed, this, &FocusSheetModel::countChanged);
    connect(&stores_.newsrooms, &NewsroomStore::newsroomsChanged, this, &FocusSheetModel::update);
    update();
}

const kit::NewsroomSpec* FocusSheetModel::spec() const {
    const auto* entry = stores_.newsrooms.newsrooms().find(newsroomID_);
    return entry && entry->value ? &*entry->value : nullptr;
}

void FocusSheetModel::update() {
    if (!spec()) {
        emit closeWanted();
        return;
    }
    count_.setQuery(spec()->focus);
    emit changed();
}

QString FocusSheetModel::name() const { return spec() ? titleText(spec()->name) : QString(); }

QStringList FocusSheetModel::words() const {
    return spec() ? shownTerms(spec()->focus.anyTerms) : QStringList();
}

void FocusSheetModel::edit(const std::function<void(std::vector<std::string>&)>& change) {
    if (!spec()) return;
    auto after = *spec();
    change(after.focus.anyTerms);
    try {
        kit::NewsroomLimits::require(after);
        steps_.change(std::move(after), tr("Change the focus of %1").arg(name()));
    } catch (const kit::RecordError& error) {
        emit noticed(tr("The focus can't be changed so: %1.").arg(bodyText(error.what())));
    }
}

void FocusSheetModel::addWords(const QString& text) {
    edit([&](auto& terms) { addTypedTerms(terms, text); });
}

void FocusSheetModel::removeWord(int index) {
    edit([&](auto& terms) { removeTermAt(terms, index); });
}

}  // namespace app
