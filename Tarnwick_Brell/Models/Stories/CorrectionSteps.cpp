#include "Tarnwick_Brell/Models/Stories/CorrectionSteps.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>

#include "NewsroomKit/Records/RecordError.h"
#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/CorrectionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

struct CorrectionSteps {
    Q_DECLARE_TR_FUNCTIONS(CorrectionSteps)
};

}  // namespace

QString makeCorrection(const DeskStores& stores, kit::Correction correction) {
    auto& corrections = stores.news.corrections();
    const auto text = correctionText(correction);
    std::string id;
    try {
        id = corrections.add(std::move(correction));
    } catch (const kit::RecordError& error) {
        return CorrectionSteps::tr("This cannot be corrected so: %1.").arg(bodyText(error.what()));
    }
    stores.undo.push({.text = CorrectionSteps::tr("correction: %1").arg(text),
                      .undo = [&corrections, id] { corrections.remove(id); },
                      .redo = [&corrections, id] { corrections.restore(id); },
                      .notice = CorrectionSteps::tr("%1, corrected by you.").arg(text)});
    return {};
}

void removeCorrection(const DeskStores& stores, const kit::Correction& correction) {
    auto& corrections = stores.news.corrections();
    const auto text = correctionText(correction);
    corrections.remove(correction.id);
    stores.undo.push(
        {.text = CorrectionSteps::tr("taking back: %1").arg(text),
         .undo = [&corrections, id = correction.id] { corrections.restore(id); },
         .redo = [&corrections, id = correction.id] { corrections.remove(id); },
         .notice = CorrectionSteps::tr("The correction is taken back; the rules decide again.")});
}

std::vector<std::string> othersOfSameNews(const DeskStores& stores, const std::string& storyID) {
    const auto clusters = stores.news.clusters();
    if (!clusters) return {};
    for (const auto& cluster : *clusters) {
        auto ids = cluster.storyIDs;
        if (std::erase(ids, storyID) > 0) return ids;
    }
    return {};
}

QString splitOff(const DeskStores& stores, const std::string& storyID,
                 std::optional<std::string> note) {
    auto ids = othersOfSameNews(stores, storyID);
    if (ids.empty()) return CorrectionSteps::tr("No other story tells the same news.");
    ids.insert(ids.begin(), storyID);
    return makeCorrection(stores, {.kind = kit::Correction::Kind::notSame,
                                   .stories = std::move(ids),
                                   .note = std::move(note)});
}

}  // namespace app
