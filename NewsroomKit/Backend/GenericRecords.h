#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <boost/json.hpp>

#include "NewsroomKit/Backend/WatchedRecord.h"

namespace kit {

/// A scalar as text; lists and objects in one canonical form, with sorted members.
std::string scalarText(const boost::json::value& value);

/// The members of an object as fields, those of nested objects under "outer/inner". Lists are one
/// field, their items sorted. `ignored` names members that are left out.
std::map<std::string, std::string> fieldsOf(const boost::json::object& object,
                                            const std::vector<std::string_view>& ignored);

/// The records of a file without a table of its own: a record for each value, known by its path.
/// Items of lists are known by what they are, not by their place: objects by a member that
/// identifies them, when there is one, all others by their value.
std::vector<WatchedRecord> genericRecords(const boost::json::value& root);

/// Members that are signatures or say when a file was made, whatever they contain.
bool isVolatileMember(std::string_view name);

}  // namespace kit
