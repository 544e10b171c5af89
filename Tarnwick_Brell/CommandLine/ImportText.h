#pragma once

#include <string>
#include <vector>

#include <boost/json.hpp>

#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Library/LibraryExchange.h"

/// What brell says of an export or import of the library.
namespace cli {

/// "3 saved stories, 1 note", or "nothing".
std::string countsText(const app::PartCounts& counts);
boost::json::object countsRecord(const app::PartCounts& counts);

/// "The file is damaged or incomplete. It ends or breaks in line 7."
std::string refusalText(const kit::ImportRefusal& refusal);

/// What a preview says in both faces: what is new, known, different.
boost::json::object importRecord(const kit::ImportPreview& preview);
boost::json::array problemsRecord(const std::vector<kit::ImportProblem>& problems);

/// The first of the records, a line each.
void printListed(Session& session, const kit::LibraryContents& contents);
/// What is not taken over, and what of it is said. `refused` are all problems.
void printRest(Session& session, const kit::ImportPreview& preview, bool replace,
               const std::vector<kit::ImportProblem>& refused);

}  // namespace cli
