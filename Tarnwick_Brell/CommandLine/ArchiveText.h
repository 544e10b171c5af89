#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Archive/ArchivePage.h"
#include "NewsroomKit/Archive/ArchiveStatus.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

namespace cli {

void printArchivePage(Output& out, const kit::ArchivePage& page);

void printArchiveStatus(Output& out, const kit::ArchiveStatus& status);

/// The archive's credits of the stories at `addresses`, in that order.
void printServerCredits(Output& out, const std::vector<std::string>& addresses,
                        const kit::ServerCredits& credits);

}  // namespace cli
