#include <algorithm>

#include "tests/BrellSharedSync/Simulation.h"

namespace shared::simulation {
namespace {

using Texts = std::map<std::string, std::string>;

/// Where removals are forgotten some machines still know of them: it is no difference.
Texts textsIn(const memory::MemoryRecords& records, bool withGone) {
    Texts texts;
    for (const auto& [id, record] : records.records) {
        const bool isIn = withGone || !isGone(*kindOfRecord(id), record.fields);
        if (isIn) texts[id] = record.fields.text();
    }
    return texts;
}

Texts textsIn(const memory::MemoryStore& store, bool withGone) {
    Texts texts;
    for (const auto& [id, document] : store.documents) {
        if (!document.record.body) continue;
        const auto fields = FieldSet::parse(*document.record.body);
        if (withGone || !isGone(*kindOfRecord(id), fields)) texts[id] = fields.text();
    }
    return texts;
}

std::string difference(const Texts& a, const Texts& b) {
    for (const auto& [id, text] : a) {
        const auto other = b.find(id);
        if (other == b.end()) return id + " is missing: " + text;
        if (other->second != text) return id + ":\n  " + text + "\n  " + other->second;
    }
    for (const auto& [id, text] : b) {
        if (!a.contains(id)) return id + " is too many: " + text;
    }
    return {};
}

}  // namespace

std::string Simulation::check() const {
    for (const auto& wrong : {checkEqual(), checkActs(), checkLines(), checkCopies()}) {
        if (!wrong.empty()) return wrong;
    }
    return {};
}

std::string Simulation::checkEqual() const {
    const auto stored = textsIn(store_, !scenario_.isLong);
    for (const auto& machine : machines_) {
        const auto own = textsIn(machine->records, !scenario_.isLong);
        const auto wrong = difference(own, stored);
        if (!wrong.empty()) return machine->name + " differs from the store: " + wrong;
        for (const auto& [id, record] : machine->records.records) {
            if (record.state != RecordState::inStep)
                return machine->name + " does not settle " + id;
        }
    }
    return {};
}

/// No change is lost, and what is gone is what was removed with knowledge of all changes.
std::string Simulation::checkActs() const {
    const auto& records = machines_.front()->records.records;
    struct Course {
        std::set<std::string> edits, seen;
        bool wasRemoved = false, wasReturned = false;
    };
    std::map<std::string, Course> courses;
    for (const auto& [mark, act] : acts_) {
        auto& course = courses[act.record];
        course.wasReturned |= act.kind == Act::Kind::return_;
        if (act.kind == Act::Kind::removal) {
            course.wasRemoved = true;
            course.seen.insert(act.known.begin(), act.known.end());
        } else {
            course.edits.insert(mark);
        }
    }
    for (const auto& [id, course] : courses) {
        const auto found = records.find(id);
        const auto& kind = *kindOfRecord(id);
        const bool isThere = found != records.end() && !isGone(kind, found->second.fields);
        if (scenario_.isLong && (course.wasRemoved || found == records.end())) {
            // Whether it was removed is forgotten together with the removal.
            if (!course.wasRemoved) return id + " is missing, and nobody removed it";
            const bool allSeen = std::ranges::includes(course.seen, course.edits);
            if (isThere && allSeen && !lostStore_ && !lostMachine_) return id + " came back";
            continue;
        }
        if (found == records.end()) return id + " is missing";
        for (const auto& edit : course.edits) {
            if (!found->second.fields.find(edit)) return id + " lost " + edit;
        }
        const bool mustBeGone =
            course.wasRemoved && (kind.comesBack ? std::ranges::includes(course.seen, course.edits)
                                                 : !course.wasReturned);
        const bool mayBeGone =
            course.wasRemoved && (mustBeGone || (course.wasReturned && !kind.comesBack));
        if (isThere && mustBeGone) return id + " came back";
        if (!isThere && !mayBeGone) return id + " is gone";
    }
    return {};
}

std::string Simulation::checkLines() const {
    std::string all;
    for (const auto& [id, record] : machines_.front()->records.records) {
        if (isGone(*kindOfRecord(id), record.fields)) continue;
        for (const auto* name : {"text", "note"}) {
            const auto& value = record.fields.value(name);
            if (value.is_string()) all += "\n" + std::string(value.get_string());
        }
    }
    for (const auto& [line, id] : lines_) {
        if (all.find("\n" + line + "\n") == std::string::npos) return "lost " + line + " of " + id;
    }
    return {};
}

/// A copy needs two who wrote without knowing of each other.
std::string Simulation::checkCopies() const {
    if (lostMachine_) return {};
    const auto wereConcurrent = [&](const std::string& record) {
        for (const auto& [mark, act] : acts_) {
            if (act.record != record || act.kind != Act::Kind::writing) continue;
            for (const auto& [other, second] : acts_) {
                if (second.record == record && second.kind == Act::Kind::writing && mark < other &&
                    !act.known.contains(other) && !second.known.contains(mark)) {
                    return true;
                }
            }
        }
        return false;
    };
    for (const auto& [id, record] : machines_.front()->records.records) {
        const auto& origin = record.fields.value("copyOf");
        if (!origin.is_object()) continue;
        const std::string of(origin.get_object().at("id").get_string());
        if (!wereConcurrent(of)) return "a copy of " + of + " without a reason";
    }
    return {};
}

}  // namespace shared::simulation
