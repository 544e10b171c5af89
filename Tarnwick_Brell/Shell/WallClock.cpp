#include "Tarnwick_Brell/Shell/WallClock.h"

#include <chrono>

namespace desk {

newsroom::Instant currentInstant() {
    return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
}

}  // namespace desk
