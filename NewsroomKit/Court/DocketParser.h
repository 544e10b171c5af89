#pragma once

#include <array>
#include <string_view>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/Court/DocketSheet.h"

namespace kit {

enum class DocketError { notADocket, malformed };

template <>
inline constexpr std::array<EnumRow<DocketError>, 2> enumTable<DocketError>{{
    {DocketError::notADocket, "notADocket", "The address didn't return docket entries."},
    {DocketError::malformed, "malformed", "The docket entries couldn't be read."},
}};

constexpr std::string_view description(DocketError error) { return label(error); }

using DocketResult = boost::outcome_v2::unchecked<DocketSheet, DocketError>;

/// Reads docket entries in any of the forms in which they are published: a court's own feed,
/// CourtListener's feed of a docket, the answers of its API and webhooks, RECAP's archived docket.
/// The document itself shows which one it is.
DocketResult parseDocket(std::string_view bytes);

}  // namespace kit
