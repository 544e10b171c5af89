#include "NewsroomKit/Archive/LenientValues.h"

#include <charconv>

namespace kit {

LenientInt Codec<LenientInt>::decode(const json::value& value) {
    if (!value.is_string()) return {Codec<std::int64_t>::decode(value)};
    const std::string_view digits = value.get_string();
    LenientInt count;
    const auto* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, count.value);
    if (read.ec != std::errc() || read.ptr != end) {
        throw RecordError("", "a whole number is expected");
    }
    return count;
}

LenientBool Codec<LenientBool>::decode(const json::value& value) {
    if (value == 1 || value == "1" || value == "true") return {true};
    if (value == 0 || value == "0" || value == "false") return {false};
    return {Codec<bool>::decode(value)};
}

}  // namespace kit
