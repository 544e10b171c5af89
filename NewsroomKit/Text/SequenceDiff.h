#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kit {

/// Two equal elements of two sequences.
struct SequenceMatch {
    std::size_t before;
    std::size_t after;

    bool operator==(const SequenceMatch&) const = default;
};

/// What two sequences have in common, in order, found as a reader would: elements that occur once
/// in both are matched first. Work is bounded, so that of very long sequences that differ almost
/// everywhere some equal elements may stay unmatched.
std::vector<SequenceMatch> commonElements(std::span<const std::uint32_t> before,
                                          std::span<const std::uint32_t> after);

}  // namespace kit
