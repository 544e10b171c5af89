#include "tests/BrellSharedSync/Simulation.h"

#include <algorithm>
#include <array>

namespace shared::simulation {
namespace {

constexpr std::string_view kMark = "mark/";
constexpr std::int64_t kSkew = 1'000'000'000;

std::vector<std::string> linesOfText(const json::value& value) {
    std::vector<std::string> lines;
    if (!value.is_string()) return lines;
    const std::string text(value.get_string());
    for (std::size_t at = 0, end = 0; (end = text.find('\n', at)) != std::string::npos;) {
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

std::string textOfLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\n";
    return text;
}

const RecordKind& kindOf(const LocalRecord& record) { return *kindOfRecord(record.id); }

std::string_view textFieldOf(std::string_view id) {
    if (id.starts_with("o:")) return "text";
    return id.starts_with("c:") ? "note" : "";
}

}  // namespace

Simulation::Simulation(Scenario scenario, std::uint64_t seed) : scenario_(scenario), dice_(seed) {
    store_.pageSize = 1 + dice_.below(12);
    for (std::size_t i = 0; i < scenario.machines; ++i) {
        auto machine = std::make_unique<Machine>();
        machine->name = "machine " + std::to_string(i);
        machine->records.setMachine(freshID());
        if (scenario.skewsClocks) {
            const auto step = dice_.oneIn(4) ? kSkew : 5'000;
            machine->clockOffset = step * (static_cast<std::int64_t>(dice_.below(3)) - 1);
        }
        machines_.push_back(std::move(machine));
    }
}

Author Simulation::authorOf(const Machine& machine) const {
    return {machine.records.place().machine, clockOf(machine)};
}

std::string Simulation::freshID() { return "i" + std::to_string(++ids_); }

std::string Simulation::run() {
    for (; steps_ < scenario_.steps; ++steps_) step();
    if (auto wrong = settle(); !wrong.empty()) return wrong;
    return check();
}

void Simulation::step() {
    now_ += scenario_.isLong ? static_cast<std::int64_t>(dice_.below(4)) * kDay
                             : 1 + static_cast<std::int64_t>(dice_.below(3)) * 700;
    auto& machine = *machines_[dice_.below(machines_.size())];
    if (dice_.oneIn(40)) fail();
    if (dice_.oneIn(60)) {
        machine.awayUntil = steps_ + dice_.below(scenario_.isLong ? 500 : 80);
        machine.session.reset();
        say(machine.name + " goes away");
    }
    if (dice_.oneIn(scenario_.isLong ? 12 : 4)) {
        userActs(machine);
    } else if (machine.awayUntil <= steps_) {
        // Where a step takes days a session lies within one.
        do talk(machine);
        while (scenario_.isLong && machine.session);
    }
}

void Simulation::userActs(Machine& machine) {
    auto& records = machine.records.records;
    if (records.size() < 3 || (records.size() < 25 && dice_.oneIn(6))) return makeRecord(machine);
    if (dice_.oneIn(60)) return removeMany(machine);
    auto chosen =
        std::next(records.begin(), static_cast<std::ptrdiff_t>(dice_.below(records.size())));
    const auto record = chosen->second;
    if (dice_.oneIn(6)) return removeOrReturn(machine, record);
    if (isGone(kindOf(record), record.fields)) return;
    if (!textFieldOf(record.id).empty() && !dice_.oneIn(4)) return write(machine, record);
    changeField(machine, record);
}

void Simulation::makeRecord(Machine& machine) {
    static constexpr std::array kPrefixes{"o:", "o:", "c:", "f:", "f:", "p:", "n:", "s:"};
    LocalRecord record{kPrefixes[dice_.below(kPrefixes.size())] + freshID()};
    // What has a natural identity is made on several machines.
    if (record.id.starts_with("s:")) record.id = "s:" + std::to_string(dice_.below(5));
    if (machine.records.find(record.id)) return;
    auto fields = record.fields;
    fields.set("title", json::string("by " + machine.name), authorOf(machine));
    // It may have been removed before.
    const bool isNatural = record.id.starts_with("s:");
    if (isNatural) bringBack(fields, authorOf(machine));
    save(machine, record, fields, isNatural ? Act::Kind::return_ : Act::Kind::edit);
}

/// Adds a line that nothing else has, and may take one out or change one.
void Simulation::write(Machine& machine, LocalRecord record) {
    const auto name = textFieldOf(record.id);
    auto lines = linesOfText(record.fields.value(name));
    const auto take = [&] {
        const auto place = lines.begin() + static_cast<std::ptrdiff_t>(dice_.below(lines.size()));
        lines_.erase(*place);
        return lines.erase(place);
    };
    if (lines.size() > 1 && dice_.oneIn(3)) take();
    const auto line = "line " + freshID();
    const auto place =
        !lines.empty() && dice_.oneIn(3)
            ? take()
            : lines.begin() + static_cast<std::ptrdiff_t>(dice_.below(lines.size() + 1));
    lines.insert(place, line);
    lines_[line] = record.id;
    auto fields = record.fields;
    fields.setText(name, json::string(textOfLines(lines)), authorOf(machine));
    save(machine, std::move(record), std::move(fields), Act::Kind::writing);
}

void Simulation::changeField(Machine& machine, LocalRecord record) {
    static constexpr std::array kFields{"title",  "tags/a", "tags/b",
                                        "done/x", "rank",   "unheard-of"};
    auto fields = record.fields;
    const auto* name = kFields[dice_.below(kFields.size())];
    const auto value = std::string_view(name).starts_with("tags/")
                           ? json::value(fields.value(name) != json::value(true))
                           : json::value(json::string(freshID()));
    fields.set(name, value, authorOf(machine));
    save(machine, std::move(record), std::move(fields), Act::Kind::edit);
}

void Simulation::removeOrReturn(Machine& machine, LocalRecord record) {
    auto fields = record.fields;
    if (isGone(kindOf(record), fields)) {
        if (!dice_.oneIn(4)) return;
        bringBack(fields, authorOf(machine));
        return save(machine, std::move(record), std::move(fields), Act::Kind::return_);
    }
    remove(fields, authorOf(machine));
    for (auto& line : linesOfText(fields.value(textFieldOf(record.id)))) lines_.erase(line);
    save(machine, std::move(record), std::move(fields), Act::Kind::removal);
}

void Simulation::removeMany(Machine& machine) {
    const auto records = machine.records.records;
    for (const auto& [id, record] : records) {
        if (id.starts_with("f:") && !isGone(kindOf(record), record.fields)) {
            removeOrReturn(machine, record);
        }
    }
}

void Simulation::save(Machine& machine, LocalRecord record, FieldSet fields, Act::Kind kind) {
    Act act{kind, record.id, {}};
    for (const auto& [name, cell] : fields.cells()) {
        if (name.starts_with(kMark)) act.known.insert(name);
    }
    const auto mark = std::string(kMark) + freshID();
    // A removal's own mark is no edit that it had not seen.
    const auto stamp =
        kind == Act::Kind::removal ? fields.find(kGone)->stamp : fields.next(authorOf(machine));
    fields.put(mark, {stamp, true, {}});
    if (kind == Act::Kind::removal) {
        auto gone = *fields.find(kGone);
        addStamps(gone.saw, {stamp});
        fields.put(kGone, gone);
    }
    say(machine.name + " (" + authorOf(machine).machine + ") " +
        std::array{"edits ", "writes ", "removes ",
                   "brings back "}[static_cast<std::size_t>(kind)] +
        record.id + " " + mark + " at " + stamp.text());
    edit(record, std::move(fields));
    LocalChanges changes;
    changes.records.push_back(std::move(record));
    machine.records.apply(changes);
    acts_[mark] = std::move(act);
}

/// One question to the store and its answer, either of which may get lost.
void Simulation::talk(Machine& machine) {
    if (!machine.session) {
        machine.session = std::make_unique<Session>(
            machine.records, SessionSettings{clockOf(machine), [this] { return freshID(); },
                                             SessionSettings::Unknown::startAnew});
    }
    const auto question = machine.session->next();
    if (!question) {
        machine.session.reset();
        return;
    }
    if (!isQuiet_ && dice_.oneIn(25)) {
        say(machine.name + " loses a question");
        machine.session.reset();
        return;
    }
    const bool isWrite = std::holds_alternative<ask::Write>(*question) ||
                         std::holds_alternative<ask::PutWitness>(*question);
    if (isQuiet_ && isWrite) ++writesInQuiet_;
    const auto answer = store_.ask(*question);
    say(machine.name + " asks " + std::to_string(question->index()));
    if (!isQuiet_ && dice_.oneIn(25)) {
        say(machine.name + " loses an answer");
        machine.session.reset();
        return;
    }
    machine.session->take(answer);
    if (machine.session->outcome() != Session::Outcome::running) machine.session.reset();
}

void Simulation::fail() {
    if (scenario_.isLong && dice_.oneIn(2)) store_.vacuum();
    if (scenario_.losesStore && dice_.oneIn(2)) return loseStore();
    if (scenario_.losesMachines) loseMachine(*machines_[dice_.below(machines_.size())]);
}

void Simulation::loseStore() {
    if (dice_.oneIn(2) || snapshots_.empty()) {
        snapshots_.push_back(store_);
        return;
    }
    // A server that is put back has been stopped: no session goes on over that.
    for (auto& machine : machines_) machine->session.reset();
    lostStore_ = true;
    if (dice_.oneIn(3)) {
        say("the store is wiped");
        const auto pageSize = store_.pageSize;
        store_ = {};
        store_.pageSize = pageSize;
    } else {
        say("the store is rolled back");
        store_ = snapshots_[dice_.below(snapshots_.size())];
    }
    forgetLost();
}

void Simulation::loseMachine(Machine& machine) {
    if (dice_.oneIn(3) && machines_.size() < scenario_.machines + 2) {
        lostMachine_ = true;
        auto clone = std::make_unique<Machine>();
        clone->name = "clone " + std::to_string(machines_.size());
        clone->records = machine.records;
        clone->clockOffset = machine.clockOffset;
        say(machine.name + " is cloned as " + clone->name);
        machines_.push_back(std::move(clone));
    } else if (!machine.backup || dice_.oneIn(2)) {
        machine.backup = std::make_unique<memory::MemoryRecords>(machine.records);
    } else {
        lostMachine_ = true;
        say(machine.name + " is restored");
        machine.session.reset();
        machine.records = *machine.backup;
        forgetLost();
    }
}

void Simulation::keepMarks(const FieldSet& fields, std::set<std::string>& marks,
                           std::set<std::string>& lines) const {
    for (const auto& [name, cell] : fields.cells()) {
        if (name.starts_with(kMark)) marks.insert(name);
        for (auto& line : linesOfText(cell.value)) lines.insert(line);
    }
}

/// Nobody can expect what is nowhere any more.
void Simulation::forgetLost() {
    std::set<std::string> marks;
    std::set<std::string> lines;
    for (const auto& machine : machines_) {
        for (const auto& [id, record] : machine->records.records) {
            keepMarks(record.fields, marks, lines);
        }
    }
    for (const auto& [id, document] : store_.documents) {
        if (document.record.body) keepMarks(FieldSet::parse(*document.record.body), marks, lines);
    }
    // Where removals are forgotten nothing shows that there was one.
    std::erase_if(acts_, [&](const auto& act) {
        const bool isKept = scenario_.isLong && act.second.kind == Act::Kind::removal;
        return !isKept && !marks.contains(act.first);
    });
    std::erase_if(lines_, [&](const auto& line) { return !lines.contains(line.first); });
}

/// Everybody is there and nothing fails: all must come to rest.
std::string Simulation::settle() {
    isQuiet_ = true;
    for (auto& machine : machines_) machine->session.reset();
    say("all is quiet");
    for (int i = 0; i < 40; ++i) {
        if (!round()) return {};
    }
    return "it does not come to rest";
}

/// A session of each machine; tells whether any wrote anything.
bool Simulation::round() {
    writesInQuiet_ = 0;
    for (auto& machine : machines_) {
        do talk(*machine);
        while (machine->session);
        LocalChanges changes;
        for (const auto& id : machine->records.idsIn(RecordState::held)) {
            auto record = *machine->records.find(id);
            applyHeld(record, authorOf(*machine));
            changes.records.push_back(std::move(record));
            ++writesInQuiet_;
        }
        machine->records.apply(changes);
    }
    return writesInQuiet_ > 0;
}

}  // namespace shared::simulation
