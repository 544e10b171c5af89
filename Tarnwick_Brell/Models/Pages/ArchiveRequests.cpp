#include "Tarnwick_Brell/Models/Pages/ArchiveRequests.h"

#include <utility>

#include "NewsroomKit/Records/RecordError.h"
#include "NewsroomKit/Records/UnreadableAnswer.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"

namespace app {

ArchiveRequests::ArchiveRequests(DeskWorker& worker, const std::string& serviceAddress)
    : worker_(worker),
      base_(kit::archiveBaseAt(serviceAddress)),
      queue_(std::make_shared<MainThreadQueue>()) {}

ArchiveRequests::~ArchiveRequests() {
    if (stories_) worker_.cancel(*stories_);
    queue_->close();
}

template <class Answer>
DeskWorker::JobID ArchiveRequests::ask(Ask<Answer> ask, Done<Answer> done) {
    const auto send = [done = std::move(done), queue = queue_](Result<Answer> result) {
        queue->send([done, result = std::move(result)] { done(result); });
    };
    auto job = [base = base_, ask = std::move(ask),
                send](DeskWorker::WorkerContext& context) -> boost::asio::awaitable<void> {
        const kit::StoryArchiveAPI api{.base = base, .http = context.stack.http()};
        const auto fetched = co_await ask(api);
        if (fetched) {
            send({.value = fetched.value()});
        } else {
            send({.failure = fetched.error().description()});
        }
    };
    return worker_.spawn(std::move(job), [send](const std::exception& error) {
        const auto* answer = dynamic_cast<const kit::RecordError*>(&error);
        send({.failure = answer ? kit::unreadableAnswer(*answer) : std::string(error.what())});
    });
}

void ArchiveRequests::stories(kit::ArchivePeriod period, std::int64_t offset,
                              Done<kit::ArchivePage> done) {
    if (stories_) worker_.cancel(*stories_);
    const auto answer = [this, turn = ++turn_, done = std::move(done)](const auto& result) {
        if (turn == turn_) done(result);
    };
    stories_ = ask<kit::ArchivePage>(
        [period, offset](const kit::StoryArchiveAPI& api) {
            return api.stories(period, offset, kStoriesAtOnce);
        },
        answer);
}

void ArchiveRequests::status(Done<kit::ArchiveStatus> done) {
    ask<kit::ArchiveStatus>([](const kit::StoryArchiveAPI& api) { return api.status(); },
                            std::move(done));
}

}  // namespace app
