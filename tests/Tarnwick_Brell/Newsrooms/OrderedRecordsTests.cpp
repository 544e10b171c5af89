#include <gtest/gtest.h>

#include <cstddef>
#include <random>

#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace {

using namespace app;
using kit::Beat;
using kit::Instant;

const Instant kNow{std::chrono::seconds(1'790'000'000)};

Beat beat(const std::string& name) {
    return kit::madeBeat(name, "bolt", {.anyTerms = {name}}, false);
}

std::string names(const std::vector<BeatRecords::Entry>& entries) {
    std::string names;
    for (const auto& entry : entries) names += entry.name + " ";
    return names;
}

/// Records and their table, which must always say the same.
class RecordsAndTable : public testing::Test {
protected:
    LocalStore store{Database::kInMemory, Database::Access::readWrite};
    BeatRecords records;
    int seconds = 0;

    void write(const std::optional<RecordChange>& change) {
        ASSERT_TRUE(change);
        change->applyTo(store.beats(), kNow + std::chrono::seconds(++seconds));
        EXPECT_EQ(BeatRecords::read(store.beats()), records) << names(records.entries());
    }
    std::string idOf(const std::string& name) {
        return BeatRecords::meant(records.entries(), name).at(0)->id;
    }
};

TEST_F(RecordsAndTable, KeepTheSameOrderThroughEveryChange) {
    for (const auto* name : {"a", "b", "c", "d"}) write(records.put(beat(name)));
    write(records.move(idOf("d"), 0));
    EXPECT_EQ(names(records.entries()), "d a b c ");

    const auto b = idOf("b"), d = idOf("d");
    write(records.remove(b));
    write(records.remove(d));
    EXPECT_EQ(names(records.removed()), "d b ") << "the last removed first";
    write(records.restore(b));
    write(records.restore(d));
    EXPECT_EQ(names(records.entries()), "d a b c ") << "back at their places";

    write(records.remove(b));
    write(records.move(idOf("a"), 99));
    write(records.put(beat("e")));
    write(records.restore(b));
    EXPECT_EQ(names(records.entries()), "d b c a e ") << "its place is still before c";

    auto changed = *records.find(b)->value;
    changed.name = "B";
    write(records.put(changed));
    EXPECT_EQ(names(records.entries()), "d B c a e ") << "a changed one keeps its place";

    EXPECT_FALSE(records.remove("unknown") || records.restore("unknown") ||
                 records.move("unknown", 0));
}

TEST_F(RecordsAndTable, KeepTheOrderOfAListThroughManyMovesOfOneRecordEach) {
    std::vector<std::string> expected;
    for (int i = 0; i < 40; ++i) {
        expected.push_back(std::to_string(i));
        write(records.put(beat(expected.back())));
    }
    std::minstd_rand random(7);
    for (int i = 0; i < 300; ++i) {
        const auto from = random() % expected.size(), to = random() % expected.size();
        const auto moved = expected[from];
        expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(from));
        expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(to), moved);
        const auto change = records.move(idOf(moved), to);
        ASSERT_EQ(change->ranks.size(), 1u);
        change->applyTo(store.beats(), kNow);
    }
    std::string list;
    for (const auto& name : expected) list += name + " ";
    EXPECT_EQ(names(records.entries()), list);
    EXPECT_EQ(BeatRecords::read(store.beats()), records);
}

TEST_F(RecordsAndTable, MoveRecordsApartThatTwoProgramsGaveTheSameRank) {
    for (const auto* name : {"a", "b", "c", "d"}) write(records.put(beat(name)));
    for (const auto* name : {"a", "b", "c"}) store.beats().setRank(idOf(name), "i");
    records = BeatRecords::read(store.beats());
    const auto second = records.entries()[1].name, third = records.entries()[2].name;
    const auto first = records.entries()[0].name;
    write(records.move(idOf("d"), 1));
    EXPECT_EQ(names(records.entries()), first + " d " + second + " " + third + " ");
}

TEST_F(RecordsAndTable, FindWhatAPersonMeans) {
    for (const auto* name : {"Siri", "Café", "siri", "CAFE"}) write(records.put(beat(name)));
    const struct {
        std::string words;
        std::string found;
    } cases[] = {{"Siri", "Siri "},      {"siri", "siri "}, {"SIRI", "Siri siri "},
                 {"cafe", "Café CAFE "}, {"Car", ""},       {idOf("Café"), "Café "}};
    for (const auto& [words, found] : cases) {
        std::string list;
        for (const auto* entry : BeatRecords::meant(records.entries(), words))
            list += entry->name + " ";
        EXPECT_EQ(list, found) << words;
    }
    EXPECT_EQ(records.freeName("Siri"), "Siri 2");
    EXPECT_EQ(records.freeName("Maps"), "Maps");
}

TEST_F(RecordsAndTable, KeepWhatCannotBeRead) {
    const struct {
        std::string id, record, name, fault;
    } cases[] = {
        {"1", R"({"id":"x","name":"Old one"})", "Old one", "id"},
        {"2", "not json", "2", ""},
        {"3", R"([1])", "3", "an object is expected"},
    };
    for (const auto& row : cases)
        store.beats().put({.id = row.id, .record = row.record, .rank = row.id});
    records = BeatRecords::read(store.beats());
    ASSERT_EQ(records.entries().size(), std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto& entry = records.entries()[i];
        EXPECT_FALSE(entry.isReadable());
        EXPECT_EQ(entry.name, cases[i].name);
        EXPECT_NE(entry.fault.find(cases[i].fault), std::string::npos) << entry.fault;
        EXPECT_EQ(entry.record, cases[i].record) << "kept as it is";
    }
    write(records.move("3", 0));
    write(records.remove("2"));
    write(records.restore("2"));
}

class NewsroomsOfALibrary : public testing::Test {
protected:
    NewsroomRecords read() { return NewsroomRecords::read(store.newsrooms()); }
    void write(const std::optional<RecordChange>& change) {
        change->applyTo(store.newsrooms(), kNow);
    }

    LocalStore store{Database::kInMemory, Database::Access::readWrite};
    const std::string today{kit::NewsroomSpec::kBuiltInID};
};

TEST_F(NewsroomsOfALibrary, StartWithTodayUntilItIsRemoved) {
    auto records = read();
    ASSERT_EQ(records.entries().size(), 1u);
    EXPECT_EQ(records.entries()[0].name, "Today");
    EXPECT_EQ(records.entries()[0].id, today);
    EXPECT_EQ(read(), records) << "its panels have the same ids each time";

    write(records.remove(today));
    EXPECT_EQ(read(), records);
    EXPECT_TRUE(read().entries().empty()) << "who has removed it does not want it back";
    write(records.restore(today));
    EXPECT_EQ(read(), records);
}

TEST_F(NewsroomsOfALibrary, KeepWhatTheUserMakesOfToday) {
    auto records = read();
    auto other = kit::NewsroomSpec::created({.id = kit::UUID::random(), .name = "Other"});
    write(records.put(other));
    EXPECT_EQ(read().entries()[1].name, "Other") << "behind the untouched one";
    write(records.move(today, 1));
    EXPECT_EQ(read(), records);
    EXPECT_EQ(read().entries()[1].id, today);

    auto changed = *records.find(today)->value;
    changed.panels.pop_back();
    write(records.put(changed));
    EXPECT_EQ(*read().find(today)->value, changed);
}

TEST(ANewsroomFromAFile, StandsBesideWhatIsThere) {
    NewsroomRecords records;
    const auto today = kit::NewsroomSpec::builtIn();
    const auto file = kit::json::serialize(kit::encode(today));
    records.put(today);
    const auto second = importedNewsroom(file, records);
    EXPECT_NE(second.id, today.id);
    EXPECT_EQ(second.name, "Today 2");
    EXPECT_EQ(second.origin, kit::NewsroomSpec::Origin::manual);
    EXPECT_EQ(second.panels, today.panels);

    records.remove(today.id.text());
    const auto third = importedNewsroom(file, records);
    EXPECT_NE(third.id, today.id) << "the removed one must be able to come back";
    EXPECT_EQ(third.name, "Today");
}

}  // namespace
