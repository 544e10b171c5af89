#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Archive/ArchivePage.h"
#include "NewsroomKit/Archive/ArchiveStatus.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

namespace brell {

void printArchivePage(Output& out, const newsroom::ArchivePage& page);

void printArchiveStatus(Output& out, const newsroom::ArchiveStatus& status);

/// What the archive knows of the stories at `addresses`, in that order.
void printServerCredits(Output& out, const std::vector<std::string>& addresses,
                        const newsroom::ServerCredits& credits);

}  // namespace brell
