#include "PressRoom/Trackers/PriceWalk.h"

#include <cmath>

namespace pressroom {
namespace {

constexpr double kShortestWave = 300;  // seconds
constexpr int kWaves = 9;              // each four times as long as the one before
constexpr double kSecondsPerDay = 86'400;

std::uint64_t mixed(std::uint64_t value) {
    value += 0x9e3779b97f4a7c15U;
    value = (value ^ (value >> 30U)) * 0xbf58476d1ce4e5b9U;
    value = (value ^ (value >> 27U)) * 0x94d049bb133111ebU;
    return value ^ (value >> 31U);
}

std::uint64_t seedOf(std::string_view symbol) {
    std::uint64_t seed = 0;
    for (const char c : symbol) seed = mixed(seed ^ static_cast<unsigned char>(c));
    return seed;
}

/// A pseudo-random number between -1 and 1, the same for the same seed, wave and knot.
double knotHeight(std::uint64_t seed, int wave, std::int64_t knot) {
    const auto chance =
        mixed(mixed(seed + static_cast<std::uint64_t>(wave)) ^ static_cast<std::uint64_t>(knot));
    return static_cast<double>(chance >> 11U) / static_cast<double>(1ULL << 52U) - 1;
}

}  // namespace

PriceWalk::PriceWalk(std::string_view symbol, double price, double dailySwing,
                     std::chrono::sys_seconds anchor)
    : seed_(seedOf(symbol)), price_(price), dailySwing_(dailySwing / 100) {
    atAnchor_ = wander(anchor);
}

double PriceWalk::wander(std::chrono::sys_seconds time) const {
    double height = 0;
    double length = kShortestWave;
    for (int wave = 0; wave < kWaves; ++wave, length *= 4) {
        const double place = static_cast<double>(time.time_since_epoch().count()) / length;
        const double knot = std::floor(place);
        const double along = place - knot;
        const double eased = along * along * (3 - 2 * along);
        const auto number = static_cast<std::int64_t>(knot);
        const double from = knotHeight(seed_, wave, number);
        const double to = knotHeight(seed_, wave, number + 1);
        height += (from + (to - from) * eased) * std::sqrt(length / kSecondsPerDay);
    }
    return height * dailySwing_;
}

double PriceWalk::at(std::chrono::sys_seconds time) const {
    return std::round(price_ * std::exp(wander(time) - atAnchor_) * 100) / 100;
}

}  // namespace pressroom
