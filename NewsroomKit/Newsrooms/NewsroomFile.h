#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

/// Newsrooms as files that people exchange: the serialised form, and nothing else.
namespace kit::NewsroomFile {

std::string write(const NewsroomSpec& spec);

/// Reads an untrusted file. Panels that overlap or leave the grid are tidied, and the result is
/// never the built-in newsroom. Throws RecordError when the file is not a newsroom, is from a newer
/// version, or exceeds NewsroomLimits.
NewsroomSpec read(std::string_view bytes);

}  // namespace kit::NewsroomFile
