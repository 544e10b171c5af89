#include <gtest/gtest.h>

#include <chrono>

#include "BrellSharedSync/Merge.h"
#include "Tarnwick_Brell/Library/KeptStore.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

const kit::Instant kStart{std::chrono::seconds(1'790'000'000)};

kit::Clip clip(const std::string& quote) {
    return {.quote = quote, .link = "https://orchard.example/pears", .title = "Pears are early"};
}

class KeptStoreTest : public testing::Test {
protected:
    KeptStore kept() { return KeptStore(store, now); }

    /// The first column of what the statement selects, as another program sees it.
    std::string list(const std::string& sql) {
        Database database(library, Database::Access::readWrite);
        Statement rows(database, sql);
        std::string list;
        while (rows.step()) list += (list.empty() ? "" : " ") + rows.text(0);
        return list;
    }
    void execute(const std::string& sql) {
        Database(library, Database::Access::readWrite).execute(sql.c_str());
    }

    shared::FieldSet shadow(const std::string& kind, const std::string& key) {
        return shared::FieldSet::parse(list("SELECT fields FROM syncRecords WHERE kind = '" + kind +
                                            "' AND key = '" + key + "'"));
    }

    kit::Story addStory(const std::string& id) {
        kit::Story story{.id = id,
                         .link = "https://orchard.example/" + id,
                         .title = "Pears are early",
                         .summary = "The first pears were picked on Monday.",
                         .author = "Ann Alder",
                         .publishedAt = kStart - std::chrono::hours(2),
                         .sourceID = "orchard",
                         .sourceName = "Orchard News"};
        auto transaction = store.transaction();
        store.merging().merge(std::vector{story}, {.seen = kStart}, store.state().nextStamp());
        transaction.commit();
        return story;
    }

    test::TemporaryFolder folder;
    std::filesystem::path library = folder.path() / "library.sqlite";
    LocalStore store{library, Database::Access::readWrite};
    kit::Instant now = kStart;
};

TEST_F(KeptStoreTest, WritesAThingAndItsSyncRecordTogetherOrNotAtAll) {
    const auto made = kept().put(clip("picked on Monday"));
    EXPECT_EQ(list("SELECT kind || ':' || key || ' ' || state FROM syncRecords"),
              "c:" + made.id + " 1");
    execute("CREATE TRIGGER no BEFORE UPDATE ON syncRecords BEGIN SELECT raise(FAIL, 'no'); END");
    EXPECT_THROW(kept().edit<kit::Clip>(made.id, [](kit::Clip& its) { its.note = "Ask Ann"; }),
                 StoreError);
    EXPECT_EQ(kept().find<kit::Clip>(made.id)->note, "");
    EXPECT_THROW(kept().remove(KeptKind::clip, made.id), StoreError);
    EXPECT_TRUE(kept().find<kit::Clip>(made.id));
}

TEST_F(KeptStoreTest, AnEditStampsOnlyTheFieldsThatItChanges) {
    auto made = clip("picked on Monday");
    made.tags = {"pears", "harvest", "pears"};
    made = kept().put(made);
    EXPECT_EQ(made.tags, (std::vector<std::string>{"harvest", "pears"}));
    const auto before = shadow("c", made.id);
    kept().edit<kit::Clip>(made.id, [](kit::Clip& its) { its.tags = {"pears"}; });
    const auto after = shadow("c", made.id);
    EXPECT_EQ(after.value("tags/harvest"), false);
    EXPECT_EQ(*after.find("tags/pears"), *before.find("tags/pears"));
    EXPECT_EQ(*after.find("title"), *before.find("title"));
}

TEST_F(KeptStoreTest, KeepsWhatANewerVersionWrote) {
    const auto made = kept().put(clip("picked on Monday"));
    execute("UPDATE kept SET record = json_set(record, '$.mood', 'ripe')");
    kept().edit<kit::Clip>(made.id, [](kit::Clip& its) { its.note = "Ask Ann"; });
    EXPECT_EQ(list("SELECT json_extract(record, '$.mood', '$.note') FROM kept"),
              R"(["ripe","Ask Ann"])");
    EXPECT_EQ(shadow("c", made.id).value("mood"), "ripe");

    {
        auto transaction = store.transaction();
        store.kept().putUnreadable(KeptKind::note, "N", R"({"title":7})", "A tree", "no text");
        transaction.commit();
    }
    EXPECT_EQ(store.kept().faultCount(), 1u);
    EXPECT_FALSE(kept().find<kit::Note>("N"));
    EXPECT_EQ(store.kept().list({.kind = KeptKind::note}).at(0).title, "A tree");
    EXPECT_THROW(kept().put(kit::Note{.id = "N", .text = "over it"}), KeptProblem);
    EXPECT_EQ(list("SELECT record FROM kept WHERE kind = 'note'"), R"({"title":7})");
}

TEST_F(KeptStoreTest, WhatIsRemovedComesBackFor90DaysAndThenStaysATombstone) {
    const auto note = kept().put(kit::Note{.title = "Plan", .text = "one"});
    kept().put(kit::Note{.id = note.id, .title = "Plan", .text = "two"});
    ASSERT_TRUE(kept().remove(KeptKind::note, note.id));
    EXPECT_FALSE(kept().remove(KeptKind::note, note.id));
    EXPECT_TRUE(shared::isGone(*shared::kindOfRecord("o:"), shadow("o", note.id)));
    EXPECT_TRUE(store.keptSearch().find({.text = "two"}).empty());
    now += KeptTable::kRestorable;
    EXPECT_EQ(store.kept().removed(now).size(), 1u);
    ASSERT_TRUE(kept().restore(KeptKind::note, note.id));
    EXPECT_EQ(kept().find<kit::Note>(note.id)->text, "two");
    EXPECT_FALSE(shared::isGone(*shared::kindOfRecord("o:"), shadow("o", note.id)));

    kept().remove(KeptKind::note, note.id);
    now += KeptTable::kRestorable + std::chrono::seconds(1);
    EXPECT_TRUE(store.kept().removed(now).empty());
    kept().put(kit::Project{.name = "Any other write"});
    EXPECT_FALSE(kept().restore(KeptKind::note, note.id));
    EXPECT_EQ(list("SELECT count(*) FROM kept WHERE record LIKE '%two%'"), "0");
    EXPECT_EQ(list("SELECT count(*) FROM noteVersions"), "0");
    EXPECT_EQ(shadow("o", note.id).cells().size(), 1u);
}

TEST_F(KeptStoreTest, ASavedStoryOutlivesItsStoryAndSaysWhatWasSeenFirst) {
    addStory("pears");
    {
        auto transaction = store.transaction();
        kit::Article article;
        article.title = "Pears";
        article.blocks.resize(2);
        article.blocks[0].text = "One.";
        article.blocks[1].text = "Two.";
        store.articles().put("pears", "https://orchard.example/pears", article, kStart);
        transaction.commit();
    }
    const std::vector<std::string> ids{"pears"};
    store.marks().save(ids, now);
    const auto text = store.savedStories().text("pears");
    ASSERT_TRUE(text);
    EXPECT_EQ(text->text, "One.\n\nTwo.");
    EXPECT_EQ(text->sha256, "8fe200d7c97faa776f1558bb2be4fec48ddbac13601a8884c45bdabff7b8293d");
    execute("UPDATE stories SET title = 'Another title'");
    store.marks().unsave(ids);
    EXPECT_FALSE(kept().find<kit::SavedStory>("pears"));
    store.marks().undoLastChange(now);
    EXPECT_EQ(kept().find<kit::SavedStory>("pears")->title, "Pears are early");

    execute("UPDATE stories SET title = 'Pears are early'; DELETE FROM stories");
    const auto saved = kept().find<kit::SavedStory>("pears");
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->excerpt, "The first pears were picked on Monday.");
    EXPECT_EQ(saved->author, "Ann Alder");
    EXPECT_EQ(saved->savedAt, now);
    ASSERT_TRUE(kept().remove(KeptKind::story, "pears"));
    EXPECT_FALSE(kept().find<kit::SavedStory>("pears"));
    ASSERT_TRUE(kept().restore(KeptKind::story, "pears"));
    EXPECT_EQ(list("SELECT story FROM pendingMarks WHERE savedAt IS NOT NULL"), "pears");
}

TEST_F(KeptStoreTest, ANoteKeepsItsTextsButOneForEachRunOfTyping) {
    auto note = kept().put(kit::Note{.text = "0"});
    now += kTypingRun;
    for (int i = 1; i <= 100; ++i) {
        now += std::chrono::seconds(3);
        note.text = std::to_string(i);
        kept().put(note, NoteSaving::whileTyping);
    }
    EXPECT_EQ(store.noteVersions().of(note.id).back().text, "0");
    EXPECT_LE(store.noteVersions().of(note.id).size(), 2u);
    for (int i = 0; i < 60; ++i) {
        note.text += "x";
        kept().put(note);
    }
    const auto versions = store.noteVersions().of(note.id);
    EXPECT_EQ(versions.size(), NoteVersions::kMost);
    EXPECT_EQ(versions.front().text + "x", note.text);
}

TEST_F(KeptStoreTest, RefusesWhatIsTooLargeAndCleansTheRest) {
    EXPECT_THROW(kept().put(clip(std::string(kit::kMostBytesOfQuote + 1, 'x'))), KeptProblem);
    EXPECT_THROW(kept().put(clip(" \n")), KeptProblem);
    EXPECT_THROW(kept().put(kit::Note{.text = std::string(kit::kMostBytesOfNote + 1, 'x')}),
                 KeptProblem);
    EXPECT_THROW(kept().put(kit::Project{}), KeptProblem);
    EXPECT_EQ(kept().put(clip("a\x1b[31mb\xff")).quote, "a[31mb\xef\xbf\xbd");
    EXPECT_EQ(store.kept().count(KeptKind::clip), 1u);
}

TEST_F(KeptStoreTest, AProjectHasItsMembersInTheOrderOfTimeOrOfTheUser) {
    addStory("pears");
    const auto project = kept().put(kit::Project{.name = "Harvest"});
    const auto quote = kept().put([] {
        auto made = clip("picked on Monday");
        made.accessedAt = kStart;
        return made;
    }());
    const auto note = kept().put(kit::Note{.text = "Ask Ann"});
    ASSERT_TRUE(kept().setMember(project.id, kit::MemberKind::story, "pears", true));
    ASSERT_TRUE(kept().setMember(project.id, kit::MemberKind::clip, quote.id, true));
    now += std::chrono::hours(1);
    ASSERT_TRUE(kept().setMember(project.id, kit::MemberKind::note, note.id, true));
    EXPECT_FALSE(kept().setMember(project.id, kit::MemberKind::signal, "none", true));
    const auto order = [&] {
        std::string kinds;
        for (const auto& item : kept().timeline(*kept().find<kit::Project>(project.id)))
            kinds += std::string(kit::rawValue(item.kind)) + (item.isDone ? "! " : " ");
        return kinds;
    };
    EXPECT_TRUE(order().starts_with("story "));
    const auto noteKey = kit::memberKey(kit::MemberKind::note, note.id);
    ASSERT_TRUE(kept().moveMember(project.id, noteKey, 0));
    ASSERT_TRUE(kept().setDone(project.id, noteKey, true));
    EXPECT_EQ(order(), "note! story clip ");
    ASSERT_TRUE(kept().moveMember(project.id, kit::memberKey(kit::MemberKind::clip, quote.id), 1));
    EXPECT_EQ(order(), "note! clip story ");
    kept().remove(KeptKind::project, project.id);
    EXPECT_TRUE(kept().find<kit::Clip>(quote.id)) << "its members stay";
}

TEST_F(KeptStoreTest, ProjectsStandWhereTheUserPutsThem) {
    std::vector<std::string> ids;
    for (const auto* name : {"A", "B", "C"})
        ids.push_back(kept().put(kit::Project{.name = name}).id);
    ASSERT_TRUE(kept().moveProject(ids[2], 0));
    ASSERT_TRUE(kept().moveProject(ids[0], 9));
    std::string order;
    for (const auto& row : store.kept().list({.kind = KeptKind::project})) order += row.title;
    EXPECT_EQ(order, "CBA");
    EXPECT_NE(shadow("p", ids[2]).value("rank"), shadow("p", ids[1]).value("rank"));
}

TEST_F(KeptStoreTest, FindsWhatIsKeptAndMarksTheHits) {
    addStory("pears");
    const auto note = kept().put(kit::Note{.title = "Pläne", .text = "We pick\nPEARS at dawn"});
    kept().put(clip("picked on Monday"));
    const auto hits = store.keptSearch().find({.text = "pears -monday"});
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0].id, note.id);
    EXPECT_EQ(hits[0].snippet.text, "We pick PEARS at dawn");
    EXPECT_EQ(hits[0].snippet.hits, (std::vector<MarkedText::Range>{{.begin = 8, .size = 5}}));
    const auto places = [&](const KeptSearchQuery& query) {
        std::string found;
        for (const auto& hit : store.keptSearch().find(query))
            found += std::string(kit::rawValue(hit.scope)) + " ";
        return found;
    };
    EXPECT_EQ(places({.text = "pears"}), "notes clips stories ");
    EXPECT_EQ(places({.text = "plane", .scope = SearchScope::notes}), "notes ");
    EXPECT_EQ(places({.text = "\"' OR author: NEAR("}), "");
    store.marks().save(std::vector<std::string>{"pears"}, now);
    EXPECT_EQ(places({.text = "pears -picked"}), "notes ");
    EXPECT_EQ(places({.text = "early"}), "saved clips ");
}

}  // namespace
}  // namespace app
