#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include "Tarnwick_Brell/Desk/Announcement.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "tests/support/EventLoop.h"
#include "tests/support/app/TestDesk.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using pressroom::Response;
using test::TestDesk;

class NewsDeskTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ::test::beApplication(); }

    void open() {
        desk_ = std::make_unique<NewsDesk>(harness_.library(), harness_.network(), defaults_,
                                           harness_.clock());
        desk_->onNewStories(
            [this](const auto& news) { announced_.push_back(Announcement::of(news)); });
        QObject::connect(desk_.get(), &NewsDesk::failed,
                         [this](const QString& text) { failures_.push_back(text.toStdString()); });
        desk_->start();
        ASSERT_TRUE(until([&] { return desk_->isLoaded(); }));
    }

    /// Runs the event loop until it holds, half a minute at most.
    static bool until(const std::function<bool()>& holds) {
        const auto end = std::chrono::steady_clock::now() + 30s;
        while (!holds() && std::chrono::steady_clock::now() < end) {
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents,
                                            20);
            QTimer::singleShot(5, [] {});
        }
        return holds();
    }

    void refresh() {
        bool ended = false;
        const auto connection = QObject::connect(desk_.get(), &NewsDesk::passEnded,
                                                 [&](const PassReport&) { ended = true; });
        desk_->refreshAll();
        EXPECT_TRUE(until([&] { return ended; }));
        QObject::disconnect(connection);
    }

    /// What another program would see.
    StoredStory stored(const std::string& id) {
        return LocalStore(harness_.library(), Database::Access::readOnly)
            .stories()
            .findByID(id, 1)
            .at(0);
    }

    std::size_t unreadCount() const {
        std::size_t count = 0;
        for (std::size_t i = 0; i < desk_->stories().size(); ++i) {
            count += desk_->stories()[i].isRead() ? 0 : 1;
        }
        return count;
    }

    std::string idAt(std::size_t place) const { return std::string(desk_->stories()[place].id()); }

    TestDesk harness_{{"a.example", "b.example"}};
    Defaults defaults_{harness_.folder.path() / "settings.ini"};
    std::vector<Announcement> announced_;
    std::vector<std::string> failures_;
    std::unique_ptr<NewsDesk> desk_;
};

TEST_F(NewsDeskTest, AFirstFetchIsSilentAndLaterNewsIsAnnounced) {
    harness_.serve("a.example",
                   {TestDesk::feed("a.example", 61, 63), TestDesk::feed("a.example", 61, 65),
                    TestDesk::feed("a.example", 66, 90)});
    harness_.serve("b.example", {TestDesk::feed("b.example", 1, 2)});
    open();
    EXPECT_EQ(desk_->sources().size(), 47u);
    EXPECT_EQ(desk_->enabledSourceIDs().size(), 2u);
    // The timer may have been faster with the first pass.
    if (!desk_->lastRefresh()) refresh();
    EXPECT_EQ(desk_->stories().size(), 5u);
    EXPECT_TRUE(announced_.empty());
    EXPECT_EQ(desk_->sourceStatus("a.example").storyCount, 3);
    EXPECT_EQ(desk_->firstSeen(idAt(0)), harness_.now());

    refresh();
    ASSERT_EQ(announced_.size(), 1u);
    EXPECT_EQ(announced_[0].total, 2u);
    EXPECT_EQ(announced_[0].stories.at(0).title, "a.example 65") << "the newest first";
    EXPECT_FALSE(announced_[0].isSummary());

    refresh();
    ASSERT_EQ(announced_.size(), 2u);
    EXPECT_EQ(announced_[1].total, 25u);
    EXPECT_EQ(announced_[1].stories.size(), 20u);
    EXPECT_TRUE(announced_[1].isSummary());
    EXPECT_EQ(desk_->lastArrival(), harness_.now());
    EXPECT_FALSE(desk_->lastPassFailed());
}

TEST_F(NewsDeskTest, MarksHoldAtOnceAreKeptAndAllReadCanBeTakenBack) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 6)});
    open();
    refresh();
    const auto first = idAt(0), second = idAt(1), third = idAt(2);
    desk_->setRead({first, "unknown"}, true);
    desk_->setSaved({second}, true);
    EXPECT_TRUE(desk_->isRead(first));
    EXPECT_TRUE(desk_->isSaved(second));
    std::vector<std::int64_t> all;
    for (std::size_t i = 0; i < 6; ++i) all.push_back(desk_->stories()[i].number());
    EXPECT_EQ(desk_->markAllRead(all), 5u);
    EXPECT_EQ(unreadCount(), 0u);
    EXPECT_TRUE(desk_->undoMarks());
    EXPECT_EQ(unreadCount(), 5u);
    EXPECT_FALSE(desk_->undoMarks());

    desk_.reset();
    EXPECT_TRUE(stored(first).readAt.has_value());
    EXPECT_TRUE(stored(second).savedAt.has_value());
    EXPECT_FALSE(stored(second).readAt.has_value());
    open();
    EXPECT_EQ(unreadCount(), 5u);
    EXPECT_EQ(desk_->stories().savedCount(), 1u);
}

TEST_F(NewsDeskTest, EveryProgramTakesBackTheSameLastChangeOfMarks) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 4)});
    open();
    refresh();
    LocalStore other(harness_.library(), Database::Access::readWrite);
    std::vector<std::int64_t> all;
    for (std::size_t i = 0; i < 4; ++i) all.push_back(desk_->stories()[i].number());
    desk_->setRead({idAt(0)}, true);
    EXPECT_FALSE(desk_->canUndo()) << "what is read by the way is nothing to take back";
    EXPECT_EQ(desk_->markAllRead(all), 3u);
    ASSERT_TRUE(until([&] { return other.marks().canUndo(); }));
    EXPECT_EQ(other.marks().undoLastChange(harness_.now())->numbers.size(), 3u);
    EXPECT_TRUE(until([&] { return unreadCount() == 3; }));
    EXPECT_TRUE(until([&] { return !desk_->canUndo(); }));

    desk_->setSaved({idAt(1)}, true);
    ASSERT_TRUE(until([&] { return other.marks().canUndo(); }));
    EXPECT_EQ(other.marks().markAllRead({}, harness_.now()), 3u);
    EXPECT_TRUE(desk_->undoMarks()) << "before this desk has noticed the other's change";
    EXPECT_TRUE(until([&] { return desk_->isSaved(idAt(1)) && unreadCount() == 3; }));
    EXPECT_FALSE(other.marks().canUndo());

    desk_->setRead({idAt(0)}, false, Undoable::yes);
    desk_.reset();
    open();
    EXPECT_TRUE(desk_->undoMarks()) << "a change of the run before";
    EXPECT_TRUE(until([&] { return desk_->isRead(idAt(0)); }));
}

TEST_F(NewsDeskTest, AMarkThatCannotBeWrittenIsRolledBackWithItsUndo) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 3)});
    open();
    refresh();
    const auto first = idAt(0), second = idAt(1), third = idAt(2);
    desk_->setRead({first}, true, Undoable::yes);
    LocalStore other(harness_.library(), Database::Access::readWrite);
    ASSERT_TRUE(until([&] { return other.marks().canUndo(); }));
    Database database(harness_.library(), Database::Access::readWrite);
    database.execute(
        "CREATE TRIGGER refuse BEFORE UPDATE ON deskState BEGIN SELECT RAISE(ABORT, ''); END");
    for (const bool saved : {true, false}) desk_->setSaved({second}, saved);
    EXPECT_TRUE(until([&] { return failures_.size() == 2; }));
    EXPECT_FALSE(desk_->isSaved(second));
    database.execute("DROP TRIGGER refuse");

    other.stories().dropBeyond(2, harness_.now());
    failures_.clear();
    desk_->setSaved({third}, true);
    EXPECT_TRUE(until([&] { return failures_.size() == 1; }));
    EXPECT_EQ(failures_.at(0), "The story is no longer in the library.");
    EXPECT_FALSE(desk_->isSaved(third));

    EXPECT_TRUE(desk_->undoMarks()) << "the last change that was written";
    EXPECT_FALSE(desk_->isRead(first));
    EXPECT_TRUE(until([&] { return !other.marks().canUndo(); }));
    EXPECT_FALSE(desk_->canUndo());
}

TEST_F(NewsDeskTest, NoClockThatLeapsTakesStoriesFromTheWireOrAnnouncesThemAgain) {
    for (const auto leap : {24h * 800, -24h * 800}) {
        SCOPED_TRACE(leap.count());
        const auto truth = harness_.now();
        harness_.serve("a.example", {TestDesk::dated(TestDesk::feed("a.example", 60, 99), truth)});
        open();
        refresh();
        desk_.reset();
        announced_.clear();

        harness_.pass(leap);
        open();
        EXPECT_EQ(desk_->stories().size(), 40u) << "at the start, before any server was asked";
        refresh();
        EXPECT_TRUE(desk_->clockSeemsWrong());
        EXPECT_EQ(desk_->stories().size(), 40u);
        desk_->markLeft(harness_.now());
        harness_.serve("a.example", {TestDesk::dated({.status = 500}, truth)});
        refresh();
        EXPECT_EQ(desk_->stories().size(), 40u);
        harness_.pass(-leap);
        harness_.serve("a.example", {TestDesk::dated(TestDesk::feed("a.example", 60, 99), truth)});
        refresh();
        EXPECT_FALSE(desk_->clockSeemsWrong());
        EXPECT_EQ(desk_->stories().size(), 40u);
        EXPECT_TRUE(announced_.empty());
        desk_.reset();
        open();
        EXPECT_LE(desk_->newSince(), harness_.now());
        desk_.reset();
    }
}

TEST_F(NewsDeskTest, AtTheStartTheClockIsBelievedUpToWhereServersLastConfirmedIt) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 99)});
    open();
    refresh();
    EXPECT_EQ(desk_->stories().size(), 99u);
    desk_.reset();
    defaults_.set("storyRetentionDays", "1");
    harness_.serve("a.example", {{.delivery = {.hangsUp = true}}});
    harness_.pass(24h * 800);
    open();
    EXPECT_EQ(desk_->stories().size(), 24u);
}

TEST_F(NewsDeskTest, AChangeThatCannotBeWrittenIsTakenBackAndTold) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 2)});
    open();
    refresh();
    Database(harness_.library(), Database::Access::readWrite).execute("DROP TABLE marks");
    desk_->setRead({idAt(0)}, true);
    EXPECT_TRUE(desk_->isRead(idAt(0)));
    EXPECT_TRUE(until([&] { return !failures_.empty() && !desk_->isRead(idAt(0)); }));
}

TEST_F(NewsDeskTest, WhatAnotherProgramChangesIsFollowed) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 2)});
    open();
    refresh();
    const auto id = idAt(1);
    {
        LocalStore other(harness_.library(), Database::Access::readWrite);
        auto transaction = other.transaction();
        kit::Story story{.id = "ff",
                         .link = "https://c.example/",
                         .title = "From outside",
                         .publishedAt = harness_.now(),
                         .sourceID = "c",
                         .sourceName = "C"};
        other.merging().merge(std::vector{story}, {.seen = harness_.now()},
                              other.state().nextStamp());
        other.sources().setEnabled("b.example", false);
        transaction.commit();
        other.marks().save(std::vector<std::string>{id}, harness_.now());
    }
    EXPECT_TRUE(until([&] { return desk_->isSaved(id); }));
    EXPECT_EQ(desk_->stories()[0].title(), "From outside");
    EXPECT_FALSE(desk_->enabledSourceIDs().contains("b.example"));
    ASSERT_EQ(announced_.size(), 1u);
    EXPECT_EQ(announced_[0].stories.at(0).title, "From outside");
}

TEST_F(NewsDeskTest, APassCanBeCancelledAndADeskClosesWhateverHangs) {
    harness_.serve("a.example", {{.delivery = {.neverAnswers = true}}});
    harness_.serve("b.example", {TestDesk::feed("b.example", 1, 2)});
    open();
    if (!desk_->isRefreshing()) desk_->refreshAll();
    EXPECT_TRUE(until([&] { return desk_->progress().done == 1; }));
    EXPECT_EQ(desk_->progress().total, 2u);
    desk_->cancelRefresh();
    EXPECT_TRUE(until([&] { return !desk_->isRefreshing(); }));
    EXPECT_EQ(desk_->stories().size(), 2u) << "what had arrived is kept";
    EXPECT_FALSE(desk_->sourceStatus("a.example").lastError.has_value());

    desk_->refreshAll();
    EXPECT_TRUE(until([&] { return desk_->progress().done == 1; }));
    const auto begin = std::chrono::steady_clock::now();
    desk_.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

TEST_F(NewsDeskTest, SourcesAreAddedRenamedSwitchedAndRemoved) {
    harness_.serve("new.example", {TestDesk::feed("new.example", 1, 2)});
    open();
    std::optional<SourceAdder::Checked> checked;
    std::vector<kit::FetchAttempt::Outcome> watched;
    desk_->checkAddress(
        "https://new.example/feed",
        [&](const auto& attempt) { watched.push_back(attempt.outcome); },
        [&](const auto& result) { checked = result; });
    EXPECT_TRUE(until([&] { return checked.has_value(); }));
    using enum kit::FetchAttempt::Outcome;
    EXPECT_EQ(watched, (std::vector{underWay, feed}));
    std::vector<kit::NewsSource> added;
    const auto& found = std::get<AddressCheck>(*checked);
    desk_->importOutlines({.feeds = {{.title = found.name, .feedURL = found.feedURL}}}, {},
                          [&](const auto& result) { added = result; });
    EXPECT_TRUE(until([&] { return !added.empty(); }));
    const auto source = added.front();
    EXPECT_TRUE(desk_->enabledSourceIDs().contains(source.id));
    desk_->setEnabled(source.id, false);
    desk_->renameSource(source.id, "Other name");
    EXPECT_TRUE(until([&] { return desk_->sources().back().name == "Other name"; }));
    EXPECT_FALSE(desk_->enabledSourceIDs().contains(source.id));
    desk_->removeSources({source.id});
    EXPECT_TRUE(until([&] { return desk_->sources().back().id == "b.example"; }));

    checked.reset();
    desk_->checkAddress("a.example/feed", {}, [&](const auto& result) { checked = result; });
    EXPECT_TRUE(until([&] { return checked.has_value(); }));
    EXPECT_EQ(std::get<AddSourceError>(*checked).kind, AddSourceError::Kind::alreadyAdded);
}

TEST_F(NewsDeskTest, OfSearchesInARowOnlyTheLastIsAnswered) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 12)});
    open();
    refresh();
    std::vector<std::size_t> answers;
    for (const char* typed : {"n", "example", "example 12"}) {
        desk_->search(typed, 50, [&](const auto& found) { answers.push_back(found.size()); });
    }
    EXPECT_TRUE(until([&] { return !answers.empty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(answers, std::vector<std::size_t>{1});
}

TEST_F(NewsDeskTest, StoriesPastRetentionGoExceptSavedOnes) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 90)});
    open();
    refresh();
    EXPECT_EQ(desk_->stories().size(), 90u);
    desk_->setSaved({idAt(89)}, true);
    defaults_.set("storyRetentionDays", "1");
    refresh();
    EXPECT_EQ(desk_->stories().size(), 15u + 1u);
    EXPECT_EQ(LocalStore(harness_.library(), Database::Access::readOnly).stories().count(), 16u);
}

}  // namespace
}  // namespace app
