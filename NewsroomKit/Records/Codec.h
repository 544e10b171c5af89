#pragma once

#include <concepts>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <boost/json.hpp>

#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Records/RecordError.h"

/// The one JSON form of records. A record declares its keys once:
///
///     template <>
///     struct JSONFields<SourceCredit> {
///         static constexpr auto fields = std::tuple{
///             field("kind", &SourceCredit::kind), field("name", &SourceCredit::name), …};
///     };
///
/// Writing and reading both follow that list, in its order. An optional member is left out
/// when absent, and reads as absent when its key is missing or null; every other key is
/// required. Unknown keys are ignored.
namespace kit {

namespace json = boost::json;

/// How instants are written. Reading takes both forms.
enum class DateStyle { iso8601, secondsSince1970 };

template <class Record, class Member>
struct Field {
    std::string_view key;
    Member Record::* member;
};

template <class Record, class Member>
constexpr Field<Record, Member> field(std::string_view key, Member Record::* member) {
    return {key, member};
}

template <class T>
struct JSONFields;

template <class T>
concept Record = requires { JSONFields<T>::fields; };

template <class T>
struct Codec;

/// A whole number is written as one, so that 600 seconds do not read "6E2".
json::value numberValue(double number);

/// Throws RecordError when `text` is not JSON.
json::value parseJSON(std::string_view text);

template <class T>
json::value encode(const T& value, DateStyle dates = DateStyle::iso8601) {
    return Codec<T>::encode(value, dates);
}

/// Throws RecordError.
template <class T>
T decode(const json::value& value) {
    return Codec<T>::decode(value);
}

template <>
struct Codec<std::string> {
    static json::value encode(const std::string& text, DateStyle) { return json::string(text); }
    static std::string decode(const json::value& value);
};

template <>
struct Codec<bool> {
    static json::value encode(bool truth, DateStyle) { return truth; }
    static bool decode(const json::value& value);
};

template <>
struct Codec<double> {
    static json::value encode(double number, DateStyle) { return numberValue(number); }
    static double decode(const json::value& value);
};

template <>
struct Codec<std::int64_t> {
    static json::value encode(std::int64_t number, DateStyle) { return number; }
    static std::int64_t decode(const json::value& value);
};

template <>
struct Codec<Instant> {
    static json::value encode(Instant instant, DateStyle dates);
    /// Fails with "Unreadable date " and the text as it stands.
    static Instant decode(const json::value& value);
};

template <TabledEnum E>
struct Codec<E> {
    static json::value encode(E value, DateStyle) { return json::string(rawValue(value)); }
    static E decode(const json::value& value) {
        const auto raw = Codec<std::string>::decode(value);
        if (const auto known = enumFromRaw<E>(raw)) return *known;
        throw RecordError("", "unknown value \"" + raw + "\"");
    }
};

template <class T>
struct Codec<std::vector<T>> {
    static json::value encode(const std::vector<T>& list, DateStyle dates) {
        json::array array;
        array.reserve(list.size());
        for (const T& item : list) array.push_back(kit::encode<T>(item, dates));
        return array;
    }
    static std::vector<T> decode(const json::value& value) {
        if (!value.is_array()) throw RecordError("", "a list is expected");
        std::vector<T> list;
        list.reserve(value.get_array().size());
        for (const auto& item : value.get_array()) {
            try {
                list.push_back(kit::decode<T>(item));
            } catch (const RecordError& error) {
                throw error.inside("[" + std::to_string(list.size()) + "]");
            }
        }
        return list;
    }
};

template <class T>
struct Codec<std::map<std::string, T>> {
    static json::value encode(const std::map<std::string, T>& map, DateStyle dates) {
        json::object object;
        for (const auto& [key, item] : map) object.emplace(key, kit::encode<T>(item, dates));
        return object;
    }
    static std::map<std::string, T> decode(const json::value& value) {
        if (!value.is_object()) throw RecordError("", "an object is expected");
        std::map<std::string, T> map;
        for (const auto& pair : value.get_object()) {
            try {
                map.emplace(pair.key(), kit::decode<T>(pair.value()));
            } catch (const RecordError& error) {
                throw error.inside(std::string(pair.key()));
            }
        }
        return map;
    }
};

namespace codec {

template <class T>
inline constexpr bool isOptional = false;
template <class T>
inline constexpr bool isOptional<std::optional<T>> = true;

template <class R, class Member>
void encodeField(json::object& object, const R& record, const Field<R, Member>& f,
                 DateStyle dates) {
    if constexpr (isOptional<Member>) {
        const auto& value = record.*f.member;
        if (value) object.emplace(f.key, kit::encode<typename Member::value_type>(*value, dates));
    } else {
        object.emplace(f.key, kit::encode<Member>(record.*f.member, dates));
    }
}

template <class R, class Member>
void decodeField(const json::object& object, R& record, const Field<R, Member>& f) {
    const json::value* value = object.if_contains(f.key);
    try {
        if constexpr (isOptional<Member>) {
            if (value && !value->is_null()) {
                record.*f.member = kit::decode<typename Member::value_type>(*value);
            }
        } else {
            if (!value) throw RecordError("", "the key is missing");
            record.*f.member = kit::decode<Member>(*value);
        }
    } catch (const RecordError& error) {
        throw error.inside(std::string(f.key));
    }
}

}  // namespace codec

template <Record R>
struct Codec<R> {
    static json::value encode(const R& record, DateStyle dates) {
        json::object object;
        std::apply([&](const auto&... f) { (codec::encodeField(object, record, f, dates), ...); },
                   JSONFields<R>::fields);
        return object;
    }
    static R decode(const json::value& value) {
        if (!value.is_object()) throw RecordError("", "an object is expected");
        R record{};
        std::apply(
            [&](const auto&... f) { (codec::decodeField(value.get_object(), record, f), ...); },
            JSONFields<R>::fields);
        return record;
    }
};

}  // namespace kit
