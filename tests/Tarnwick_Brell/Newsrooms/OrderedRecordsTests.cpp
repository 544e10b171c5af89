#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "tests/support/TemporaryFolder.h"

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
    write(shelf.move(idOf("c"), 99));
    write(shelf.put(beat("e")));
    write(shelf.restore(b));
    EXPECT_EQ(names(shelf.entries()), "d a c b e ");

    auto changed = *shelf.find(b)->value;
    changed.name = "B";
    write(shelf.put(changed));
    EXPECT_EQ(names(shelf.entries()), "d a c B e ") << "a changed one keeps its place";

    EXPECT_FALSE(shelf.remove("unknown") || shelf.restore("unknown") || shelf.move("unknown", 0));
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
    for (const auto& row : cases) store.beats().put(row.id, row.record);
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

TEST(NewsroomsOfALibrary, StartWithTodayOnce) {
    const ::test::TemporaryFolder folder;
    const auto file = folder.path() / "library.db";
    NewsroomShelf first;
    {
        LocalStore store(file, Database::Access::readWrite);
        first = NewsroomShelf::read(store.newsrooms());
        ASSERT_EQ(first.entries().size(), 1u);
        EXPECT_EQ(first.entries()[0].name, "Today");
        EXPECT_EQ(first.entries()[0].id, kit::NewsroomSpec::kBuiltInID);
    }
    {
        LocalStore again(file, Database::Access::readWrite);
        auto shelf = NewsroomShelf::read(again.newsrooms());
        EXPECT_EQ(shelf, first) << "its panels keep their ids";
        shelf.remove(first.entries()[0].id)->applyTo(again.newsrooms(), kNow);
    }
    LocalStore without(file, Database::Access::readWrite);
    EXPECT_TRUE(NewsroomShelf::read(without.newsrooms()).entries().empty())
        << "who has removed it does not want it back";
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
