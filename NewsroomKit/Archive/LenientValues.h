#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "NewsroomKit/Records/Codec.h"

/// Values whose JSON types vary, because services in scripting languages don't fix them.
namespace kit {

/// A count: a whole number, or its digits as text. Written as a number.
struct LenientInt {
    std::int64_t value = 0;

    constexpr operator std::int64_t() const { return value; }
    bool operator==(const LenientInt&) const = default;
};

/// A truth value: true and false, 1 and 0, or one of these as text. Written as true or false.
struct LenientBool {
    bool value = false;

    constexpr explicit operator bool() const { return value; }
    bool operator==(const LenientBool&) const = default;
};

/// An object with keys that are data. An empty list reads as one without keys.
template <class T>
struct LenientMap : std::map<std::string, T> {
    using std::map<std::string, T>::map;
};

template <>
struct Codec<LenientInt> {
    static json::value encode(LenientInt count, DateStyle) { return count.value; }
    static LenientInt decode(const json::value& value);
};

template <>
struct Codec<LenientBool> {
    static json::value encode(LenientBool truth, DateStyle) { return truth.value; }
    static LenientBool decode(const json::value& value);
};

template <class T>
struct Codec<LenientMap<T>> {
    using Map = std::map<std::string, T>;

    static json::value encode(const LenientMap<T>& map, DateStyle dates) {
        return Codec<Map>::encode(map, dates);
    }
    static LenientMap<T> decode(const json::value& value) {
        LenientMap<T> map;
        const bool isEmptyList = value.is_array() && value.get_array().empty();
        if (!isEmptyList) static_cast<Map&>(map) = Codec<Map>::decode(value);
        return map;
    }
};

}  // namespace kit
