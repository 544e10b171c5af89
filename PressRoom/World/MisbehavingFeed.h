#pragma once

#include <atomic>
#include <chrono>

#include "PressRoom/Server/Message.h"
#include "PressRoom/World/Edition.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// Answers for a feed that misbehaves. It serves RSS 2.0, whatever the platform. Kinds that change
/// from fetch to fetch depend only on the number of requests, retries included. Thread-safe.
class MisbehavingFeed {
public:
    explicit MisbehavingFeed(Misbehaviour misbehaviour) : misbehaviour_(misbehaviour) {}

    /// `edition` is the feed's normal content at `now`.
    Response answer(const Request& request, const Edition& edition, std::chrono::sys_seconds now);

private:
    Misbehaviour misbehaviour_;
    std::atomic<std::size_t> fetches_ = 0;
};

}  // namespace pressroom
