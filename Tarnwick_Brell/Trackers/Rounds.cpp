#include "Tarnwick_Brell/Trackers/Rounds.h"

#include <random>

namespace app {

double randomSpread() {
    std::random_device source;
    return std::uniform_real_distribution<double>(-1, 1)(source);
}

}  // namespace app
