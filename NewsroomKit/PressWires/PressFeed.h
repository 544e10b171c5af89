#pragma once

#include <array>
#include <string>
#include <string_view>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/PressWires/PressRelease.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

enum class PressError { channelUnknown, notAFeed, malformed };

template <>
inline constexpr std::array<EnumRow<PressError>, 3> enumTable<PressError>{{
    {PressError::channelUnknown, "channelUnknown", "The wire knows no such channel."},
    {PressError::notAFeed, "notAFeed", "The address didn't return a feed."},
    {PressError::malformed, "malformed", "The feed couldn't be read."},
}};

/// Why a feed has no releases. Wires say in words that they know no such channel.
struct PressFault {
    PressError error{};
    std::string description{};
};

using PressResult = boost::outcome_v2::unchecked<PressSheet, PressFault>;

/// Reads the releases of a wire's feed or of a company's own. Wires answer a request for an unknown
/// channel with status 200: with an empty feed that says so, or with the news of all companies.
PressResult parsePress(std::string_view bytes);

/// Law firms look for investors to represent; a tenth of the wires are such notices.
bool isLawFirmNotice(const PressRelease& release);

}  // namespace kit
