#include "Tarnwick_Brell/Models/Newsrooms/NewsroomSteps.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>

#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

struct NewsroomStepText {
    Q_DECLARE_TR_FUNCTIONS(NewsroomSteps)
};

void putUnlessGone(NewsroomStore& newsrooms, const std::vector<kit::NewsroomSpec>& specs) {
    for (const auto& spec : specs)
        if (newsrooms.newsrooms().find(spec.id.text())) newsrooms.put(spec);
}

}  // namespace

void NewsroomSteps::change(kit::NewsroomSpec after, const QString& text) {
    change(std::vector{std::move(after)}, text);
}

void NewsroomSteps::change(std::vector<kit::NewsroomSpec> after, const QString& text) {
    auto& newsrooms = newsrooms_;
    std::vector<kit::NewsroomSpec> before;
    for (const auto& spec : after) {
        const auto* entry = newsrooms.newsrooms().find(spec.id.text());
        if (!entry || !entry->value) return;
        before.push_back(*entry->value);
    }
    if (before == after) return;
    putUnlessGone(newsrooms, after);
    undo_.push({.text = text,
                .undo = [&newsrooms, before] { putUnlessGone(newsrooms, before); },
                .redo = [&newsrooms, after] { putUnlessGone(newsrooms, after); }});
}

void NewsroomSteps::add(kit::NewsroomSpec spec) {
    auto& newsrooms = newsrooms_;
    const auto id = spec.id.text();
    const auto text = NewsroomStepText::tr("Add newsroom %1").arg(titleText(spec.name));
    newsrooms.put(std::move(spec));
    undo_.push({.text = text,
                .undo = [&newsrooms, id] { newsrooms.removeNewsroom(id); },
                .redo = [&newsrooms, id] { newsrooms.restoreNewsroom(id); }});
}

void NewsroomSteps::remove(const std::string& id) {
    auto& newsrooms = newsrooms_;
    const auto* entry = newsrooms.newsrooms().find(id);
    if (!entry) return;
    const auto text = NewsroomStepText::tr("Remove newsroom %1").arg(titleText(entry->name));
    newsrooms.removeNewsroom(id);
    undo_.push({.text = text,
                .undo = [&newsrooms, id] { newsrooms.restoreNewsroom(id); },
                .redo = [&newsrooms, id] { newsrooms.removeNewsroom(id); }});
}

void NewsroomSteps::move(const std::string& id, std::size_t place) {
    auto& newsrooms = newsrooms_;
    const auto& entries = newsrooms.newsrooms().entries();
    const auto from = newsrooms.newsrooms().placeOf(id);
    place = std::min(place, entries.size() - 1);
    if (!from || place == *from) return;
    const auto before = *from;
    const auto text = NewsroomStepText::tr("Move newsroom %1").arg(titleText(entries[before].name));
    newsrooms.moveNewsroom(id, place);
    undo_.push({.text = text,
                .undo = [&newsrooms, id, before] { newsrooms.moveNewsroom(id, before); },
                .redo = [&newsrooms, id, place] { newsrooms.moveNewsroom(id, place); }});
}

}  // namespace app
