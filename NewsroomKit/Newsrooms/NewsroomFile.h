#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

/// Newsrooms as files, for people to exchange: the serialised form, and nothing else.
namespace kit::NewsroomFile {

std::string write(const NewsroomSpec& spec);

/// What a file from anywhere holds. Its panels are put in order where they overlap or leave the
/// grid, and it is never the built-in newsroom. Throws RecordError when it is no newsroom, one of
/// a newer version, or more than NewsroomLimits allows.
NewsroomSpec read(std::string_view bytes);

}  // namespace kit::NewsroomFile
