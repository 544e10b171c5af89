#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include <boost/json.hpp>

namespace kit {

inline constexpr std::size_t mostFileEntries = 2'000'000;
inline constexpr std::size_t deepestFileEntry = 128;

/// The values of a JSON document or of a property list in XML or binary form. Dates become text;
/// data becomes a text with its length and hash. Nothing when it is malformed or beyond the limits.
std::optional<boost::json::value> readValues(std::string_view bytes);

/// A property list in binary form ("bplist00"). Objects may be shared; an object inside itself and
/// lists that unfold beyond the limits are malformed.
std::optional<boost::json::value> readBinaryPropertyList(std::string_view bytes);

/// What stands for data in a property list: "data of 20 bytes, 9f86d081884c7d65".
boost::json::string describedData(std::string_view data);

}  // namespace kit
