#pragma once

#include <string>

#include <boost/json.hpp>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace brell {

/// The spec in its serialised form, or what can be said of one that can't be read.
boost::json::value recordOf(const desk::NewsroomShelf::Entry& entry);

/// "stream, status and stock"
std::string panelsText(const newsroom::NewsroomSpec& spec);

}  // namespace brell
