#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace kit {

/// One row of an enumeration's table: the serialised text and the text people read.
template <class E>
struct EnumRow {
    E value;
    std::string_view raw;
    std::string_view label;
};

/// Every serialised enumeration has exactly one `inline constexpr std::array<EnumRow<E>, N>`
/// found through this variable, with its cases in their declared order from zero.
template <class E>
inline constexpr std::nullptr_t enumTable = nullptr;

template <class E>
concept TabledEnum = requires { enumTable<E>.size(); };

template <TabledEnum E>
constexpr std::string_view rawValue(E value) {
    return enumTable<E>[static_cast<std::size_t>(value)].raw;
}

template <TabledEnum E>
constexpr std::string_view label(E value) {
    return enumTable<E>[static_cast<std::size_t>(value)].label;
}

template <TabledEnum E>
constexpr std::optional<E> enumFromRaw(std::string_view raw) {
    for (const auto& row : enumTable<E>) {
        if (row.raw == raw) return row.value;
    }
    return std::nullopt;
}

}  // namespace kit
