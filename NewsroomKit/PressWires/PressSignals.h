#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/PressWires/PressRelease.h"
#include "NewsroomKit/Signals/Signal.h"

namespace kit {

/// A company whose releases are kept.
struct PressCompany {
    std::string symbol{};  ///< "AAPL"
    std::string name{};    ///< as wires write it, with or without "Inc."; may be empty
};

/// Whether the release is by one of the companies: by its symbol, else by its name.
bool isOfCompany(const PressRelease& release, std::span<const PressCompany> companies);

/// What makes a release the same one in another feed: the words of its title, and its day.
std::string releaseKey(const PressRelease& release);

/// A signal for each release. `readAt` is the address of the feed.
std::vector<Signal> signalsOf(std::span<const PressRelease> added, std::string_view readAt,
                              Instant now);

}  // namespace kit
