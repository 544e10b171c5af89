#include "Tarnwick_Brell/Shell/WallClock.h"

#include <chrono>

namespace app {

kit::Instant currentInstant() {
    return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
}

}  // namespace app
