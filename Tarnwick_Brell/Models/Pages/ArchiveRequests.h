#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "NewsroomKit/Archive/StoryArchiveAPI.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"

namespace app {

/// Asks the story archive on the worker's thread and answers on the main thread. A newer question
/// cancels the one under way; a question dies with this.
class ArchiveRequests {
public:
    template <class Answer>
    struct Result {
        std::optional<Answer> value{};
        std::string failure{};  ///< a sentence, when there is no value
    };
    template <class Answer>
    using Done = std::function<void(const Result<Answer>&)>;

    static constexpr std::int64_t kStoriesAtOnce = 100;

    ArchiveRequests(DeskWorker& worker, const std::string& serviceAddress);
    ~ArchiveRequests();

    void stories(kit::ArchivePeriod period, std::int64_t offset, Done<kit::ArchivePage> done);
    void status(Done<kit::ArchiveStatus> done);

private:
    template <class Answer>
    using Ask = std::function<boost::asio::awaitable<kit::FetchResult<Answer>>(
        const kit::StoryArchiveAPI&)>;

    template <class Answer>
    DeskWorker::JobID ask(Ask<Answer> ask, Done<Answer> done);

    DeskWorker& worker_;
    std::string base_;
    std::uint64_t turn_ = 0;  ///< answers to earlier questions for stories are dropped
    std::optional<DeskWorker::JobID> stories_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
