#include "Tarnwick_Brell/Desk/DeskJobs.h"

#include <utility>

#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

DeskJobs::DeskJobs(const std::filesystem::path& library, kit::CurlTransport::Options network,
                   kit::Clock clock, Receiver receiver)
    : clock_(std::move(clock)),
      receiver_(std::move(receiver)),
      worker_(library, std::move(network), clock_) {}

DeskJobs::~DeskJobs() = default;

void DeskJobs::post(DeskWorker::Job job, std::function<void()> undo) {
    worker_.post(std::move(job), reportFailure(std::move(undo)));
}

DeskWorker::Failed DeskJobs::reportFailure(std::function<void()> undo) {
    return [this, undo = std::move(undo)](const std::exception& error) {
        const auto* store = dynamic_cast<const StoreError*>(&error);
        const bool isDamaged = store && store->reason() == StoreError::Reason::damaged;
        deliver([this, undo, isDamaged, sentence = QString::fromUtf8(error.what())] {
            if (undo) undo();
            receiver_.fail(sentence, isDamaged);
        });
    };
}

void DeskJobs::deliver(std::function<void()> message) { queue_.send(std::move(message)); }

void DeskJobs::deliver(DeskUpdate update) {
    deliver([this, update = std::make_shared<DeskUpdate>(std::move(update))] {
        receiver_.apply(std::move(*update));
    });
}

void DeskJobs::beginUpdates(DeskWorker::WorkerContext& context) {
    updates_ = std::make_unique<DeskUpdateBuilder>(context.store, clock_, context.isClosing);
}

DeskUpdateBuilder& DeskJobs::updates() {
    if (updates_) return *updates_;
    throw StoreError(StoreError::Reason::unreadable, "The library has not been read.");
}

}  // namespace app
