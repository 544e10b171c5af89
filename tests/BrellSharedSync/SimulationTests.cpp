#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/BrellSharedSync/Simulation.h"

namespace {

using shared::simulation::Scenario;
using shared::simulation::Simulation;

/// BRELL_SYNC_SEEDS runs as many as it says, BRELL_SYNC_SEED that one alone.
std::uint64_t numberOr(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text ? std::stoull(text) : otherwise;
}

void expectAgreement(const Scenario& scenario) {
    const auto one = numberOr("BRELL_SYNC_SEED", 0);
    const auto runs = numberOr("BRELL_SYNC_SEEDS", 500);
    int failed = 0;
    for (std::uint64_t seed = one ? one : 1; seed <= (one ? one : runs); ++seed) {
        Simulation simulation(scenario, seed);
        const auto wrong = simulation.run();
        if (wrong.empty()) continue;
        ADD_FAILURE() << "BRELL_SYNC_SEED=" << seed << ": " << wrong;
        if (++failed > 1) continue;
        for (const auto& line : simulation.trace()) std::cerr << line << "\n";
    }
    EXPECT_EQ(failed, 0) << "of " << runs;
}

TEST(SyncSimulation, MachinesAgreeAfterCutsAndWithWrongClocks) {
    expectAgreement({.losesStore = false, .losesMachines = false});
}

}  // namespace
