#include "Tarnwick_Brell/Desk/Corrections.h"

#include <utility>

#include "NewsroomKit/Newsrooms/UUID.h"
#include "NewsroomKit/Records/Codec.h"
#include "Tarnwick_Brell/Desk/DeskJobs.h"
#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

/// Writes with `change`, which returns the stamp, and delivers what it changes.
template <class Change>
void writeCorrection(DeskJobs& jobs, Change change) {
    jobs.post([&jobs, change = std::move(change)](DeskWorker::WorkerContext& context) {
        auto transaction = context.store.transaction();
        const auto stamp = change(context.store.corrections());
        transaction.commit();
        jobs.deliver(jobs.updates().corrected(stamp));
    });
}

}  // namespace

Corrections::Corrections(DeskJobs& jobs, kit::Clock clock)
    : jobs_(jobs),
      clock_(std::move(clock)),
      state_{.overlay = std::make_shared<const kit::CorrectionOverlay>()} {}

std::string Corrections::add(kit::Correction correction) {
    correction.id = kit::UUID::random().text();
    correction.madeAt = clock_();
    kit::requireSound(correction);
    auto id = correction.id;
    writeCorrection(jobs_, [correction = std::move(correction)](CorrectionTable& table) {
        return table.put(correction);
    });
    return id;
}

void Corrections::remove(const std::string& id) {
    writeCorrection(jobs_,
                    [id, at = clock_()](CorrectionTable& table) { return table.remove(id, at); });
}

void Corrections::restore(const std::string& id) {
    writeCorrection(jobs_, [id](CorrectionTable& table) { return table.restore(id); });
}

void Corrections::apply(CorrectionState state) {
    if (state == state_) return;
    state_ = std::move(state);
    emit changed();
}

std::string exportedCorrections(const std::vector<kit::Correction>& corrections) {
    return boost::json::serialize(kit::encode(corrections)) + "\n";
}

}  // namespace app
