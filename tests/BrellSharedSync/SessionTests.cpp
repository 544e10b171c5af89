#include <gtest/gtest.h>

#include "BrellSharedSync/Session.h"
#include "tests/BrellSharedSync/MemoryRecords.h"
#include "tests/BrellSharedSync/MemoryStore.h"

namespace {

using shared::FieldSet;
using shared::RecordState;
using shared::Session;
using shared::memory::MemoryRecords;
using shared::memory::MemoryStore;

constexpr std::int64_t kStart = 1'750'000'000'000;

class SyncSession : public testing::Test {
protected:
    SyncSession() {
        here.setMachine("here");
        there.setMachine("there");
    }

    Session::Outcome sync(
        MemoryRecords& records, Session::Outcome expected = Session::Outcome::done,
        shared::SessionSettings::Unknown unknown = shared::SessionSettings::Unknown::startAnew) {
        Session session(records, {now, [this] { return "id" + std::to_string(++ids); }, unknown});
        while (const auto question = session.next()) {
            if (before) before(*question);
            session.take(store.ask(*question));
        }
        EXPECT_EQ(session.outcome(), expected);
        return session.outcome();
    }

    void write(MemoryRecords& records, const std::string& id, const std::string& field,
               const std::string& value) {
        auto record = records.find(id).value_or(shared::LocalRecord{id});
        auto fields = record.fields;
        fields.set(field, boost::json::string(value), {records.place().machine, now});
        shared::edit(record, std::move(fields));
        records.records[id] = record;
    }

    void removeHere(const std::string& id) {
        auto fields = here.records.at(id).fields;
        shared::remove(fields, {"here", now});
        shared::edit(here.records.at(id), std::move(fields));
    }

    MemoryStore store;
    MemoryRecords here;
    MemoryRecords there;
    std::int64_t now = kStart;
    int ids = 0;
    std::function<void(const shared::Question&)> before{};
};

TEST_F(SyncSession, AStoreThatIsEmptyOrAnotherLibrarysIsLeftAloneUntilTheUserDecides) {
    using Unknown = shared::SessionSettings::Unknown;
    write(here, "b:1", "name", "x");
    sync(here, Session::Outcome::noLibrary, Unknown::ask);
    sync(here, Session::Outcome::noLibrary, Unknown::join);
    EXPECT_TRUE(store.documents.empty());
    sync(here);
    store.epoch = "another";
    sync(here, Session::Outcome::otherLibrary, Unknown::ask);
    EXPECT_EQ(here.records.size(), 1U);
    sync(here, Session::Outcome::done, Unknown::join);
    EXPECT_EQ(here.place().epoch, "another");
}

TEST_F(SyncSession, WhatIsChangedWhileItIsOnItsWayIsSentAgain) {
    write(here, "b:1", "name", "first");
    bool isWritten = false;
    before = [&](const shared::Question& question) {
        if (!std::holds_alternative<shared::ask::Write>(question) || isWritten) return;
        isWritten = true;
        write(here, "b:1", "name", "second");
    };
    sync(here);
    sync(there);
    EXPECT_EQ(there.records.at("b:1").fields.value("name"), "second");
}

TEST_F(SyncSession, ManyRemovalsAtOnceWaitForTheUsersWord) {
    for (int i = 0; i < 30; ++i) write(here, "b:" + std::to_string(i), "name", "x");
    sync(here);
    sync(there);
    for (int i = 0; i < 3; ++i) removeHere("b:" + std::to_string(i));
    sync(here);
    sync(there);
    EXPECT_EQ(there.countOf("b:"), 27U);
    for (int i = 10; i < 22; ++i) removeHere("b:" + std::to_string(i));
    sync(here);
    sync(there);
    sync(there);
    EXPECT_EQ(there.countOf("b:"), 27U);
    EXPECT_EQ(there.idsIn(RecordState::held).size(), 12U);

    shared::applyHeld(there.records.at("b:10"), {"there", now});
    shared::refuseHeld(there.records.at("b:11"), {"there", now});
    sync(there);
    sync(here);
    EXPECT_EQ(there.countOf("b:"), 26U);
    EXPECT_EQ(here.countOf("b:"), 16U);
}

TEST_F(SyncSession, RecordsOfLaterVersionsAreKeptAndNeverWrittenOver) {
    sync(here);
    store.ask(shared::ask::Write{{{"z:1", "", "new"}, {"b:1", "", "another form"}}});
    write(here, "b:1", "name", "x");
    sync(here);
    EXPECT_EQ(here.foreign.at("z:1").body, "new");
    EXPECT_EQ(here.records.at("b:1").state, RecordState::incomplete);
    EXPECT_EQ(store.documents.at("b:1").record.body, "another form");
}

TEST_F(SyncSession, ARecordThatIsTooLargeStaysHereAndHoldsUpNoOther) {
    write(here, "b:1", "name", std::string(600'000, 'x'));
    write(here, "b:2", "name", std::string(300'000, 'x'));
    write(here, "b:3", "name", std::string(300'000, 'x'));
    sync(here);
    EXPECT_EQ(here.records.at("b:1").state, RecordState::incomplete);
    EXPECT_FALSE(here.records.at("b:1").reason.empty());
    EXPECT_EQ(store.documents.size(), 2U);
}

TEST_F(SyncSession, WhoWasAwayForMoreThanAYearGivesUpWhatWasRemovedMeanwhile) {
    for (const auto* id : {"b:removed", "b:edited", "b:kept"}) write(here, id, "name", "x");
    sync(here);
    sync(there);
    for (int pass = 0; pass < 3; ++pass) sync(there);
    now += 10 * shared::kDay;
    removeHere("b:removed");
    removeHere("b:edited");
    sync(here);
    now += 401 * shared::kDay;
    sync(here);
    store.vacuum();
    EXPECT_EQ(store.documents.size(), 1U);
    write(there, "b:edited", "name", "y");
    sync(there);
    EXPECT_FALSE(there.records.contains("b:removed"));
    EXPECT_TRUE(there.records.contains("b:kept"));
    EXPECT_TRUE(store.documents.contains("b:edited"));
}

TEST_F(SyncSession, ASecondRemovalIsNotForgottenWithTheFirst) {
    write(here, "b:1", "name", "x");
    sync(here);
    sync(there);
    removeHere("b:1");
    sync(here);
    for (int pass = 0; pass < 2; ++pass) sync(there);
    now += 300 * shared::kDay;
    auto fields = here.records.at("b:1").fields;
    shared::bringBack(fields, {"here", now});
    shared::edit(here.records.at("b:1"), std::move(fields));
    sync(here);
    now += shared::kDay;
    removeHere("b:1");
    sync(here);
    now += 110 * shared::kDay;
    for (int pass = 0; pass < 2; ++pass) sync(there);
    EXPECT_TRUE(store.documents.at("b:1").record.body)
        << "a third machine may have seen the record in between";
}

TEST_F(SyncSession, ARecordDeletedInTheStoreByHandIsSentAnew) {
    write(here, "b:1", "name", "x");
    sync(here);
    auto deleted = store.documents.at("b:1").record;
    deleted.body.reset();
    store.ask(shared::ask::Write{{deleted}});
    sync(here);
    EXPECT_TRUE(store.documents.at("b:1").record.body);
}

}  // namespace
