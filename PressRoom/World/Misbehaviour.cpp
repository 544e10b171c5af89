#include "PressRoom/World/Misbehaviour.h"

#include <charconv>

namespace pressroom {
namespace {

/// The default amount; nothing for kinds without one.
std::optional<std::int64_t> usualAmount(MisbehaviourKind kind) {
    using enum MisbehaviourKind;
    if (kind == busy || kind == unavailable) return 600;
    return kind == slow ? std::optional(2000) : std::nullopt;
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
    constexpr std::int64_t largest = 1'000'000'000;
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool reads = error == std::errc() && end == text.data() + text.size();
    return reads && number >= 0 && number <= largest ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<Misbehaviour> readMisbehaviour(std::string_view text) {
    const auto colon = text.find(':');
    const auto kind = kit::enumFromRaw<MisbehaviourKind>(text.substr(0, colon));
    if (!kind) return std::nullopt;
    const auto usual = usualAmount(*kind);
    if (colon == std::string_view::npos) return Misbehaviour{*kind, usual.value_or(0)};
    const auto amount = wholeNumber(text.substr(colon + 1));
    if (!usual || !amount) return std::nullopt;
    return Misbehaviour{*kind, *amount};
}

}  // namespace pressroom
