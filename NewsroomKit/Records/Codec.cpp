#include "NewsroomKit/Records/Codec.h"

#include <cmath>

namespace kit {

namespace {

// Beyond 2^53 a double no longer holds every whole number.
constexpr double kLargestWhole = 9007199254740992.0;

}  // namespace

json::value numberValue(double number) {
    if (std::trunc(number) == number && std::abs(number) <= kLargestWhole) {
        return static_cast<std::int64_t>(number);
    }
    return number;
}

json::value parseJSON(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    boost::system::error_code error;
    json::value value = json::parse(text, error);
    if (error) throw RecordError("", "this is not JSON (" + error.message() + ")");
    return value;
}

std::string Codec<std::string>::decode(const json::value& value) {
    if (!value.is_string()) throw RecordError("", "a text is expected");
    return std::string(value.get_string());
}

bool Codec<bool>::decode(const json::value& value) {
    if (!value.is_bool()) throw RecordError("", "true or false is expected");
    return value.get_bool();
}

double Codec<double>::decode(const json::value& value) {
    if (value.is_double()) return value.get_double();
    if (value.is_int64()) return static_cast<double>(value.get_int64());
    if (value.is_uint64()) return static_cast<double>(value.get_uint64());
    throw RecordError("", "a number is expected");
}

std::int64_t Codec<std::int64_t>::decode(const json::value& value) {
    if (value.is_int64()) return value.get_int64();
    if (value.is_double()) {
        const double number = value.get_double();
        if (std::trunc(number) == number && std::abs(number) <= kLargestWhole) {
            return static_cast<std::int64_t>(number);
        }
    }
    throw RecordError("", "a whole number is expected");
}

json::value Codec<Instant>::encode(Instant instant, DateStyle dates) {
    if (dates == DateStyle::iso8601) return json::string(iso8601Text(instant));
    return numberValue(secondsSince1970(instant));
}

Instant Codec<Instant>::decode(const json::value& value) {
    if (value.is_string()) {
        const std::string text(value.get_string());
        if (const auto instant = parseISO8601(text)) return *instant;
        throw RecordError("", "Unreadable date " + text);
    }
    if (value.is_number()) {
        const double seconds = Codec<double>::decode(value);
        if (const auto instant = instantFromSeconds(seconds)) return *instant;
        throw RecordError("", "Unreadable date " + json::serialize(value));
    }
    throw RecordError("", "a date is expected");
}

}  // namespace kit
