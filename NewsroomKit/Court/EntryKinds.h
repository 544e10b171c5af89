#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Court/DocketSheet.h"

namespace kit {

/// The weight of an entry of this kind: orders, opinions, judgments, complaints, answers,
/// oppositions, dispositive motions, verdicts, notices of appeal and settlements matter.
DocketWeight docketWeight(std::string_view kind);

/// The kind of an entry, from its text: "MOTION to Dismiss by Example Inc. …" is a "MOTION to
/// Dismiss". Never longer than 80 characters.
std::string docketKind(std::string_view text);

}  // namespace kit
