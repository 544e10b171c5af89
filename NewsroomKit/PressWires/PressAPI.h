#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/BodyFetch.h"
#include "NewsroomKit/PressWires/PressRelease.h"

namespace kit {

/// Press releases as wires and companies publish them.
struct PressAPI {
    static constexpr std::size_t kByteLimit = 8'388'608;

    HTTPClient& http;

    /// Throws RecordError when the body has no releases in it, with the wire's own words where it
    /// refuses the channel.
    static PressSheet parse(std::string_view body);

    /// Throws what parse throws.
    boost::asio::awaitable<FetchedFile<PressSheet>> sheet(std::string address) const;
};

}  // namespace kit
