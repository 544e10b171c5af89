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

std::string names(const std::vector<BeatShelf::Entry>& entries) {
    std::string names;
    for (const auto& entry : entries) names += entry.name + " ";
    return names;
}

/// A shelf and its table, which must always say the same.
class ShelfAndTable : public testing::Test {
protected:
    LocalStore store{Database::kInMemory, Database::Access::readWrite};
    BeatShelf shelf;
    int seconds = 0;

    void write(const std::optional<RecordChange>& change) {
        ASSERT_TRUE(change);
        change->applyTo(store.beats(), kNow + std::chrono::seconds(++seconds));
        EXPECT_EQ(BeatShelf::read(store.beats()), shelf) << names(shelf.entries());
    }
    std::string idOf(const std::string& name) {
        return BeatShelf::meant(shelf.entries(), name).at(0)->id;
    }
};

TEST_F(ShelfAndTable, KeepTheSameOrderThroughEveryChange) {
    for (const auto* name : {"a", "b", "c", "d"}) write(shelf.put(beat(name)));
    write(shelf.move(idOf("d"), 0));
    EXPECT_EQ(names(shelf.entries()), "d a b c ");

    const auto b = idOf("b"), d = idOf("d");
    write(shelf.remove(b));
    write(shelf.remove(d));
    EXPECT_EQ(names(shelf.removed()), "d b ") << "the last removed first";
    write(shelf.restore(b));
    write(shelf.restore(d));
    EXPECT_EQ(names(shelf.entries()), "d a b c ") << "back at their places";

    write(shelf.remove(b));
    write(shelf.move(idOf("a"), 99));
    write(shelf.put(beat("e")));
    write(shelf.restore(b));
    EXPECT_EQ(names(shelf.entries()), "d b c a e ") << "its place is still before c";

    auto changed = *shelf.find(b)->value;
    changed.name = "B";
    write(shelf.put(changed));
    EXPECT_EQ(names(shelf.entries()), "d B c a e ") << "a changed one keeps its place";

    EXPECT_FALSE(shelf.remove("unknown") || shelf.restore("unknown") || shelf.move("unknown", 0));
}

TEST_F(ShelfAndTable, KeepTheOrderOfAListThroughManyMovesOfOneRecordEach) {
    std::vector<std::string> expected;
    for (int i = 0; i < 40; ++i) {
        expected.push_back(std::to_string(i));
        write(shelf.put(beat(expected.back())));
    }
    std::minstd_rand random(7);
    for (int i = 0; i < 300; ++i) {
        const auto from = random() % expected.size(), to = random() % expected.size();
        const auto moved = expected[from];
        expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(from));
        expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(to), moved);
        const auto change = shelf.move(idOf(moved), to);
        ASSERT_EQ(change->ranks.size(), 1u);
        change->applyTo(store.beats(), kNow);
    }
    std::string list;
    for (const auto& name : expected) list += name + " ";
    EXPECT_EQ(names(shelf.entries()), list);
    EXPECT_EQ(BeatShelf::read(store.beats()), shelf);
}

TEST_F(ShelfAndTable, MoveRecordsApartThatTwoProgramsGaveTheSameRank) {
    for (const auto* name : {"a", "b", "c", "d"}) write(shelf.put(beat(name)));
    for (const auto* name : {"a", "b", "c"}) store.beats().setRank(idOf(name), "i");
    shelf = BeatShelf::read(store.beats());
    const auto second = shelf.entries()[1].name, third = shelf.entries()[2].name;
    const auto first = shelf.entries()[0].name;
    write(shelf.move(idOf("d"), 1));
    EXPECT_EQ(names(shelf.entries()), first + " d " + second + " " + third + " ");
}

TEST_F(ShelfAndTable, FindWhatAPersonMeans) {
    for (const auto* name : {"Siri", "Café", "siri", "CAFE"}) write(shelf.put(beat(name)));
    const struct {
        std::string words;
        std::string found;
    } cases[] = {{"Siri", "Siri "},      {"siri", "siri "}, {"SIRI", "Siri siri "},
                 {"cafe", "Café CAFE "}, {"Car", ""},       {idOf("Café"), "Café "}};
    for (const auto& [words, found] : cases) {
        std::string list;
        for (const auto* entry : BeatShelf::meant(shelf.entries(), words))
            list += entry->name + " ";
        EXPECT_EQ(list, found) << words;
    }
    EXPECT_EQ(shelf.freeName("Siri"), "Siri 2");
    EXPECT_EQ(shelf.freeName("Maps"), "Maps");
}

TEST_F(ShelfAndTable, KeepWhatCannotBeRead) {
    const struct {
        std::string id, record, name, fault;
    } cases[] = {
        {"1", R"({"id":"x","name":"Old one"})", "Old one", "id"},
        {"2", "not json", "2", ""},
        {"3", R"([1])", "3", "an object is expected"},
    };
    for (const auto& row : cases)
        store.beats().put({.id = row.id, .record = row.record, .rank = row.id});
    shelf = BeatShelf::read(store.beats());
    ASSERT_EQ(shelf.entries().size(), std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto& entry = shelf.entries()[i];
        EXPECT_FALSE(entry.isReadable());
        EXPECT_EQ(entry.name, cases[i].name);
        EXPECT_NE(entry.fault.find(cases[i].fault), std::string::npos) << entry.fault;
        EXPECT_EQ(entry.record, cases[i].record) << "kept as it is";
    }
    write(shelf.move("3", 0));
    write(shelf.remove("2"));
    write(shelf.restore("2"));
}

class NewsroomsOfALibrary : public testing::Test {
protected:
    NewsroomShelf read() { return NewsroomShelf::read(store.newsrooms()); }
    void write(const std::optional<RecordChange>& change) {
        change->applyTo(store.newsrooms(), kNow);
    }

    LocalStore store{Database::kInMemory, Database::Access::readWrite};
    const std::string today{kit::NewsroomSpec::kBuiltInID};
};

TEST_F(NewsroomsOfALibrary, StartWithTodayUntilItIsRemoved) {
    auto shelf = read();
    ASSERT_EQ(shelf.entries().size(), 1u);
    EXPECT_EQ(shelf.entries()[0].name, "Today");
    EXPECT_EQ(shelf.entries()[0].id, today);
    EXPECT_EQ(read(), shelf) << "its panels have the same ids each time";

    write(shelf.remove(today));
    EXPECT_EQ(read(), shelf);
    EXPECT_TRUE(read().entries().empty()) << "who has removed it does not want it back";
    write(shelf.restore(today));
    EXPECT_EQ(read(), shelf);
}

TEST_F(NewsroomsOfALibrary, KeepWhatTheUserMakesOfToday) {
    auto shelf = read();
    auto other = kit::NewsroomSpec::created({.id = kit::UUID::random(), .name = "Other"});
    write(shelf.put(other));
    EXPECT_EQ(read().entries()[1].name, "Other") << "behind the untouched one";
    write(shelf.move(today, 1));
    EXPECT_EQ(read(), shelf);
    EXPECT_EQ(read().entries()[1].id, today);

    auto changed = *shelf.find(today)->value;
    changed.panels.pop_back();
    write(shelf.put(changed));
    EXPECT_EQ(*read().find(today)->value, changed);
}

TEST(ANewsroomFromAFile, StandsBesideWhatIsThere) {
    NewsroomShelf shelf;
    const auto today = kit::NewsroomSpec::builtIn();
    const auto file = kit::json::serialize(kit::encode(today));
    shelf.put(today);
    const auto second = takenIn(file, shelf);
    EXPECT_NE(second.id, today.id);
    EXPECT_EQ(second.name, "Today 2");
    EXPECT_EQ(second.origin, kit::NewsroomSpec::Origin::manual);
    EXPECT_EQ(second.panels, today.panels);

    shelf.remove(today.id.text());
    const auto third = takenIn(file, shelf);
    EXPECT_NE(third.id, today.id) << "the removed one must be able to come back";
    EXPECT_EQ(third.name, "Today");
}

}  // namespace
