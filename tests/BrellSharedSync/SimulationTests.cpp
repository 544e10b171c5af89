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

void expectAgreement(const Scenario& scenario, std::uint64_t share) {
    const auto one = numberOr("BRELL_SYNC_SEED", 0);
    const auto runs = std::max<std::uint64_t>(1, numberOr("BRELL_SYNC_SEEDS", 500) * share / 100);
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
    expectAgreement({.losesStore = false, .losesMachines = false}, 20);
}

TEST(SyncSimulation, MachinesAgreeWhenTheStoreIsRolledBackOrWiped) {
    expectAgreement({.losesMachines = false}, 25);
}

TEST(SyncSimulation, MachinesAgreeWhenTheyAreRestoredAndCloned) { expectAgreement({}, 25); }

TEST(SyncSimulation, FiveMachinesAgreeAfterAllThatCanHappen) {
    expectAgreement({.machines = 5, .steps = 400}, 10);
}

TEST(SyncSimulation, MachinesAgreeWhenRemovalsAreForgottenWhileTheyAreAway) {
    expectAgreement({.steps = 700, .losesStore = false, .losesMachines = false, .isLong = true},
                    10);
}

TEST(SyncSimulation, MachinesAgreeOverYearsWithAllThatCanHappen) {
    expectAgreement({.steps = 700, .isLong = true}, 10);
}

}  // namespace
