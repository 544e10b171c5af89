#pragma once

#include <string>

#include "NewsroomKit/Newsrooms/NewsroomFile.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace app {

/// The file that a newsroom is exported as. One that can't be read goes as it is stored, because
/// another version may read it.
inline std::string exportedFile(const NewsroomRecords::Entry& entry) {
    return entry.value ? kit::NewsroomFile::write(*entry.value) : entry.record + "\n";
}

}  // namespace app
