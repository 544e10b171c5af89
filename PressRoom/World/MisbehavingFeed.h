#pragma once

#include <atomic>
#include <chrono>

#include "PressRoom/Server/Message.h"
#include "PressRoom/World/Edition.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// Answers for a feed that misbehaves. What it still serves is RSS 2.0, whatever the
/// platform. Kinds that change from fetch to fetch count the requests, a reader's retries
/// included, and depend on nothing else. Safe from several threads.
class MisbehavingFeed {
public:
    explicit MisbehavingFeed(Misbehaviour misbehaviour) : misbehaviour_(misbehaviour) {}

    /// `edition` is what the feed would hold at `now`.
    Response answer(const Request& request, const Edition& edition, std::chrono::sys_seconds now);

private:
    Misbehaviour misbehaviour_;
    std::atomic<std::size_t> fetches_ = 0;
};

}  // namespace pressroom
