#pragma once

#include <concepts>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

/// Web services write dates as ISO 8601 text. A number in such a place is a fault of the service,
/// because it could count seconds or milliseconds. decode() accepts numbers too, because the
/// command line writes its own records with them.
namespace kit {

/// The forms of a date that are accepted.
enum class DateForms { text, textAndNumbers };

/// By default a value holds no dates.
template <class T>
struct TextDates {
    static void require(const json::value&) {}
};

/// Throws RecordError with the path of the first date that is a number, as far as the value has the
/// form of a T. decode() reports any other form.
template <class T>
void requireTextDates(const json::value& value) {
    TextDates<T>::require(value);
}

template <>
struct TextDates<Instant> {
    static void require(const json::value& value) {
        if (value.is_number()) throw RecordError("", "Unreadable date " + json::serialize(value));
    }
};

template <class T>
struct TextDates<std::optional<T>> : TextDates<T> {};

template <class T>
struct TextDates<std::vector<T>> {
    static void require(const json::value& value) {
        if (!value.is_array()) return;
        std::size_t index = 0;
        for (const auto& item : value.get_array()) {
            try {
                requireTextDates<T>(item);
            } catch (const RecordError& error) {
                throw error.inside("[" + std::to_string(index) + "]");
            }
            ++index;
        }
    }
};

template <class Map>
    requires std::derived_from<Map, std::map<std::string, typename Map::mapped_type>>
struct TextDates<Map> {
    static void require(const json::value& value) {
        if (!value.is_object()) return;
        for (const auto& pair : value.get_object()) {
            try {
                requireTextDates<typename Map::mapped_type>(pair.value());
            } catch (const RecordError& error) {
                throw error.inside(std::string(pair.key()));
            }
        }
    }
};

template <Record R>
struct TextDates<R> {
    static void require(const json::value& value) {
        if (!value.is_object()) return;
        std::apply([&](const auto&... f) { (requireIn(value.get_object(), f), ...); },
                   JSONFields<R>::fields);
    }

private:
    template <class Member>
    static void requireIn(const json::object& object, const Field<R, Member>& f) {
        const auto* value = object.if_contains(f.key);
        if (!value) return;
        try {
            requireTextDates<Member>(*value);
        } catch (const RecordError& error) {
            throw error.inside(std::string(f.key));
        }
    }
};

}  // namespace kit
