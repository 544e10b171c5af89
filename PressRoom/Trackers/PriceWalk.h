#pragma once

#include <chrono>
#include <cstdint>
#include <string_view>

namespace pressroom {

/// A realistic price that is a pure function of time: a sum of pseudo-random waves, from minutes to
/// most of a year long, each as high as a random walk gets in that time.
class PriceWalk {
public:
    /// The price is `price` at `anchor` and moves by about `dailySwing` percent in a day. The same
    /// `symbol` always moves in the same way.
    PriceWalk(std::string_view symbol, double price, double dailySwing,
              std::chrono::sys_seconds anchor);

    /// In whole cents.
    double at(std::chrono::sys_seconds time) const;

private:
    double wander(std::chrono::sys_seconds time) const;

    std::uint64_t seed_;
    double price_;
    double dailySwing_;
    double atAnchor_ = 0;
};

}  // namespace pressroom
