#pragma once

#include <string>

#include "NewsroomKit/Records/RecordError.h"

namespace kit {

/// What the user is told of an answer that is not what the service promises.
inline std::string unreadableAnswer(const RecordError& error) {
    return "The server's answer can't be read (" + std::string(error.what()) + ").";
}

}  // namespace kit
