#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Codec.h"

namespace pressroom {

/// what() names the file and, where one is at fault, the key.
class WorldError : public std::runtime_error {
public:
    WorldError(const std::filesystem::path& file, const std::string& reason);
};

/// Throws WorldError when the file can't be opened.
std::string contentsOf(const std::filesystem::path& file);

/// Whether the press room can answer for the address.
bool isWebAddress(std::string_view text);

/// Runs a check and puts `step` in front of the path of a RecordError that it throws.
template <class Check>
void inside(const std::string& step, Check check) {
    try {
        check();
    } catch (const kit::RecordError& error) {
        throw error.inside(step);
    }
}

/// Refuses unknown keys, because a misspelt optional key would otherwise be ignored silently.
/// Includes nested records; `value` must have been decoded as a T before.
template <class T>
struct KnownKeys {
    static void require(const boost::json::value&) {}
};

template <class T>
struct KnownKeys<std::optional<T>> {
    static void require(const boost::json::value& value) {
        if (!value.is_null()) KnownKeys<T>::require(value);
    }
};

template <class T>
struct KnownKeys<std::vector<T>> {
    static void require(const boost::json::value& value) {
        const auto& list = value.get_array();
        for (std::size_t i = 0; i < list.size(); ++i) {
            inside("[" + std::to_string(i) + "]", [&] { KnownKeys<T>::require(list[i]); });
        }
    }
};

template <kit::Record R>
struct KnownKeys<R> {
    static void require(const boost::json::value& value) {
        for (const auto& pair : value.get_object()) {
            const auto look = [&]<class Member>(const kit::Field<R, Member>& field) {
                if (field.key != pair.key()) return false;
                inside(std::string(pair.key()), [&] { KnownKeys<Member>::require(pair.value()); });
                return true;
            };
            const bool known =
                std::apply([&](const auto&... field) { return (look(field) || ...); },
                           kit::JSONFields<R>::fields);
            if (!known) throw kit::RecordError(std::string(pair.key()), "unknown key");
        }
    }
};

/// Reads a file with one record, all of whose keys must be known, and runs `check`, which may throw
/// RecordError. Throws WorldError.
template <class R, class Check>
R readDataFile(const std::filesystem::path& file, Check check) {
    try {
        const auto value = kit::parseJSON(contentsOf(file));
        auto record = kit::decode<R>(value);
        KnownKeys<R>::require(value);
        check(record);
        return record;
    } catch (const kit::RecordError& error) {
        throw WorldError(file, error.what());
    }
}

}  // namespace pressroom
