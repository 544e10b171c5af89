#pragma once

#include <string>

#include "NewsroomKit/Attribution/Attribution.h"

namespace kit {

/// Who was first and why, on one line.
std::string attributionSentence(const Attribution& attribution);

}  // namespace kit
