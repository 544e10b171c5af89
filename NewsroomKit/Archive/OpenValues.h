#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "NewsroomKit/Records/Codec.h"

/// Values that services behind scripting languages write now one way and now another.
namespace newsroom {

/// A count: a whole number, or its digits as text. Written as a number.
struct OpenCount {
    std::int64_t value = 0;

    constexpr operator std::int64_t() const { return value; }
    bool operator==(const OpenCount&) const = default;
};

/// A truth value: true and false, 1 and 0, or one of these as text. Written as true or false.
struct OpenTruth {
    bool value = false;

    constexpr explicit operator bool() const { return value; }
    bool operator==(const OpenTruth&) const = default;
};

/// An object with keys that are data. An empty list reads as one without keys.
template <class T>
struct OpenMap : std::map<std::string, T> {
    using std::map<std::string, T>::map;
};

template <>
struct Codec<OpenCount> {
    static json::value encode(OpenCount count, DateStyle) { return count.value; }
    static OpenCount decode(const json::value& value);
};

template <>
struct Codec<OpenTruth> {
    static json::value encode(OpenTruth truth, DateStyle) { return truth.value; }
    static OpenTruth decode(const json::value& value);
};

template <class T>
struct Codec<OpenMap<T>> {
    using Map = std::map<std::string, T>;

    static json::value encode(const OpenMap<T>& map, DateStyle dates) {
        return Codec<Map>::encode(map, dates);
    }
    static OpenMap<T> decode(const json::value& value) {
        OpenMap<T> map;
        const bool isEmptyList = value.is_array() && value.get_array().empty();
        if (!isEmptyList) static_cast<Map&>(map) = Codec<Map>::decode(value);
        return map;
    }
};

}  // namespace newsroom
