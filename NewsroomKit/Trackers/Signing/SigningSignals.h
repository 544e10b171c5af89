#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Trackers/Signing/SigningChange.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"

namespace kit {

/// The changes between two answers for a device, each build once; the first answer is no change.
/// Both must be complete: a signed build that is gone is no longer signed.
std::vector<SigningChange> signingChanges(std::string_view device,
                                          const std::optional<SigningStatus>& before,
                                          const SigningStatus& after, Instant now);

/// One for each change.
std::vector<Signal> signalsOf(std::span<const SigningChange> changes);

/// The change that a signal of signing was made from.
SigningChange signingChangeOf(const Signal& signal);

}  // namespace kit
