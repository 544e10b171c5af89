#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "BrellSharedSync/Session.h"
#include "tests/BrellSharedSync/MemoryRecords.h"
#include "tests/BrellSharedSync/MemoryStore.h"
#include "tests/BrellSharedSync/RandomFields.h"

namespace shared::simulation {

struct Scenario {
    std::size_t machines = 3;
    std::size_t steps = 250;
    bool skewsClocks = true;
    bool losesStore = true;     ///< rolled back to a snapshot, or wiped
    bool losesMachines = true;  ///< restored from a backup, or cloned
    /// Months pass, removals are forgotten for good, machines are away for up to a year and more.
    bool isLong = false;
};

/// Several machines, each with its user, its clock and its records, and a store, whose course a
/// seed decides. Users change things and machines ask the store in any order; every question and
/// every answer can get lost, and then machines and store fail. In the end all sync.
class Simulation {
public:
    Simulation(Scenario scenario, std::uint64_t seed);

    /// What was wrong in the end; empty when nothing was.
    std::string run();
    /// What happened, a line each.
    const std::vector<std::string>& trace() const { return trace_; }

private:
    struct Machine {
        std::string name{};
        memory::MemoryRecords records{};
        std::int64_t clockOffset = 0;
        std::size_t awayUntil = 0;
        std::unique_ptr<memory::MemoryRecords> backup{};
        std::unique_ptr<Session> session{};
    };

    /// A change by a user, which leaves its mark in the record as a field that no version knows.
    struct Act {
        enum class Kind { edit, writing, removal, return_ } kind = Kind::edit;
        std::string record{};
        std::set<std::string> known{};  ///< the marks that its author saw
    };

    void say(const std::string& what) { trace_.push_back(what); }
    std::int64_t clockOf(const Machine& machine) const { return now_ + machine.clockOffset; }
    Author authorOf(const Machine& machine) const;
    std::string freshID();

    void step();
    void userActs(Machine& machine);
    void makeRecord(Machine& machine);
    void write(Machine& machine, LocalRecord record);
    void changeField(Machine& machine, LocalRecord record);
    void removeOrReturn(Machine& machine, LocalRecord record);
    void removeMany(Machine& machine);
    void save(Machine& machine, LocalRecord record, FieldSet fields, Act::Kind kind);

    void talk(Machine& machine);
    void fail();
    void loseStore();
    void loseMachine(Machine& machine);
    void forgetLost();
    void keepMarks(const FieldSet& fields, std::set<std::string>& marks,
                   std::set<std::string>& lines) const;

    std::string settle();
    bool round();
    std::string check() const;
    std::string checkEqual() const;
    std::string checkActs() const;
    std::string checkLines() const;
    std::string checkCopies() const;

    Scenario scenario_;
    random::Dice dice_;
    std::vector<std::unique_ptr<Machine>> machines_;
    memory::MemoryStore store_;
    std::vector<memory::MemoryStore> snapshots_;
    std::int64_t now_ = 1'750'000'000'000;
    std::size_t steps_ = 0;
    std::size_t ids_ = 0;
    bool lostStore_ = false;
    bool lostMachine_ = false;
    bool isQuiet_ = false;
    std::size_t writesInQuiet_ = 0;
    std::map<std::string, Act> acts_;
    std::map<std::string, std::string> lines_;  ///< not replaced by anybody who saw them -> record
    std::vector<std::string> trace_;
};

}  // namespace shared::simulation
