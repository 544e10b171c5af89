#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// Identity of a newsroom or a panel. All zeros by default.
class UUID {
public:
    UUID() = default;

    /// A fresh one from the system's entropy.
    static UUID random();

    /// Reads "8B3D5F20-0000-4000-8000-00000000A7D1" in either letter case and no other form
    /// (no braces, no "urn:uuid:").
    static std::optional<UUID> parse(std::string_view text);

    /// In upper case.
    std::string text() const;

    auto operator<=>(const UUID&) const = default;

private:
    friend struct std::hash<UUID>;

    std::array<std::uint8_t, 16> bytes_{};
};

template <>
struct Codec<UUID> {
    static json::value encode(const UUID& id, DateStyle) { return json::string(id.text()); }
    static UUID decode(const json::value& value);
};

}  // namespace kit

template <>
struct std::hash<kit::UUID> {
    std::size_t operator()(const kit::UUID& id) const noexcept {
        const auto* bytes = reinterpret_cast<const char*>(id.bytes_.data());
        return std::hash<std::string_view>{}({bytes, id.bytes_.size()});
    }
};
