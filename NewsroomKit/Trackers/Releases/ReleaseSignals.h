#pragma once

#include <optional>
#include <span>
#include <vector>

#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Trackers/Releases/SeenBuild.h"

namespace kit {

/// The builds that came between two lists. A platform that the first list lacks was only added to
/// the service's list.
std::vector<Signal> signalsOf(const std::optional<std::vector<PlatformRelease>>& before,
                              const std::vector<PlatformRelease>& after, Instant now);

/// The same signals from a history, the last seen first. The first build of each channel was there
/// when the desk first looked.
std::vector<Signal> pastSignals(std::span<const SeenBuild> builds);

/// Whether the build came out on the public channel.
bool isPublicRelease(const Signal& signal);

}  // namespace kit
