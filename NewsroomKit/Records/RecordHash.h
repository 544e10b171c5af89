#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// The hash of a record over all fields of its JSONFields, so that none is forgotten:
///
///     template <>
///     struct std::hash<Story> : RecordHash<Story> {};
///
/// Lists count with their length and absent values count too, so that a value cannot move
/// from one field to the next unnoticed. The same within a process, not beyond it.
template <Record R>
struct RecordHash {
    std::size_t operator()(const R& record) const noexcept {
        Sum sum;
        sum.add(record);
        return sum.value;
    }

private:
    struct Sum {
        std::size_t value = 0;

        template <class T>
        void add(const T& part) {
            if constexpr (TabledEnum<T>) {
                add(static_cast<std::size_t>(part));
            } else if constexpr (Record<T>) {
                std::apply([&](const auto&... f) { (add(part.*f.member), ...); },
                           JSONFields<T>::fields);
            } else {
                value ^= std::hash<T>{}(part) + 0x9e3779b97f4a7c15 + (value << 6) + (value >> 2);
            }
        }
        template <class T>
        void add(const std::optional<T>& part) {
            add(part.has_value());
            if (part) add(*part);
        }
        template <class T>
        void add(const std::vector<T>& list) {
            add(list.size());
            for (const T& item : list) add(item);
        }
        void add(const Instant& instant) { add(instant.time_since_epoch().count()); }
    };
};

}  // namespace kit
