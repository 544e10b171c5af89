#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

#include "NewsroomKit/Backend/BackendWatch.h"
#include "Tarnwick_Brell/Models/Pages/BackendPageModel.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// The findings in Apple's public files, read and copied by keys.
class BackendJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        LocalStore store(harness_.desk.library(), Database::Access::readWrite);
        poll(store, "siri", "10:01", R"({"limit":4})");
        poll(store, "robots", "10:01", "User-agent: *\nDisallow: /a\n");
        for (const char* clock : {"10:31", "10:41"}) poll(store, "siri", clock, R"({"limit":6})");
        for (const char* clock : {"10:35", "10:45"})
            poll(store, "robots", clock, "User-agent: *\nDisallow: /a\nDisallow: /home\n");
        harness_.tell("Harbour", "10:50", "Apple blocks home pages in robots.txt");
        openWindow();
        model_->open(QStringLiteral("tracker:backend"));
    }

    void poll(LocalStore& store, const char* id, const char* clock, const std::string& body) {
        const auto& file = *kit::watchedFile(id);
        auto& history = store.findings();
        auto state = history.watch(id).value_or(kit::WatchState());
        const auto poll = kit::pollWatchedFile(file, std::move(state),
                                               kit::readWatchedRecords(file.source, body).value(),
                                               harness_.at(clock));
        history.add(id, poll, body);
    }

    BackendPageModel& page() { return dynamic_cast<BackendPageModel&>(*model_->page()); }
    bool hasListFocus() {
        auto* item = window().activeFocusItem();
        while (item && nameOf(item) != "Findings") item = item->parentItem();
        return item != nullptr;
    }
    QString line(int row, const char* member) {
        const auto roles = page().lines()->roleNames();
        return page().lines()->index(row, 0).data(roles.key(member)).toString();
    }
};

TEST_F(BackendJobTest, AFindingIsReadWithBothItsStatesAndCopied) {
    ASSERT_TRUE(until([&] { return page().rows()->rowCount() == 2 && hasListFocus(); }));
    EXPECT_EQ(page().chosenTitle(), "robots.txt blocks /home");
    press(Qt::Key_J);
    EXPECT_EQ(page().chosenTitle(), "Setting \"limit\" changed, 4 → 6");
    EXPECT_TRUE(page().chosenSight().contains("10:31")) << page().chosenSight().toStdString();
    EXPECT_EQ(line(1, "before"), "  value: 4");
    EXPECT_EQ(line(1, "after"), "  value: 6");
    press(Qt::Key_C, Qt::ControlModifier);
    const auto copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.contains("> " + line(1, "after"))) << copied.toStdString();
    EXPECT_TRUE(copied.contains("cloudkit/siri-1.0.plist"));
    page().setShowsSent(true);
    EXPECT_TRUE(until([&] { return line(0, "after") == "{\"limit\":6}"; }));
    EXPECT_EQ(line(0, "before"), "{\"limit\":4}");
    QString opened;
    QObject::connect(model_.get(), &WindowModel::linkWanted,
                     [&](const QString& link) { opened = link; });
    press(Qt::Key_Return);
    EXPECT_TRUE(opened.endsWith("siri-1.0.plist")) << opened.toStdString();
}

TEST_F(BackendJobTest, FindingsAreNewUntilThePageIsLeftAndStandBesideTheStoriesOfTheirHour) {
    const auto member = [&](int row, const char* name) {
        const auto roles = page().rows()->roleNames();
        return page().rows()->index(row, 0).data(roles.key(name));
    };
    ASSERT_TRUE(until([&] { return page().rows()->rowCount() == 2; }));
    EXPECT_TRUE(member(0, "isNew").toBool());
    EXPECT_TRUE(member(1, "isNew").toBool());
    EXPECT_TRUE(page().countText().startsWith("2 new")) << page().countText().toStdString();
    ASSERT_EQ(page().wire()->rowCount(), 1) << page().wireSentence().toStdString();
    const auto roles = page().wire()->roleNames();
    EXPECT_EQ(page().wire()->index(0, 0).data(roles.key("title")).toString(),
              "Apple blocks home pages in robots.txt");
    EXPECT_EQ(page().wireSentence(), "The desk saw it 15 min before the first story.");
    model_->open(QStringLiteral("wire"));
    model_->open(QStringLiteral("tracker:backend"));
    ASSERT_TRUE(until([&] { return page().rows()->rowCount() == 2; }));
    EXPECT_FALSE(member(0, "isNew").toBool());
}

TEST_F(BackendJobTest, FindingsAreFilteredAndTheFilesListed) {
    ASSERT_TRUE(until([&] { return page().rows()->rowCount() == 2; }));
    page().setSubject(1 + static_cast<int>(kit::FileSubject::paths));
    EXPECT_EQ(page().chosenTitle(), "robots.txt blocks /home");
    EXPECT_EQ(page().rows()->rowCount(), 1);
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return isTyping(); }));
    type("limit");
    EXPECT_TRUE(until([&] { return page().nothingShown() == "No finding matches."; }));
    page().showAll();
    EXPECT_EQ(page().rows()->rowCount(), 2);
    page().setShowsFiles(true);
    EXPECT_EQ(page().rows()->rowCount(), static_cast<int>(kit::watchedFiles().size()));
    EXPECT_TRUE(page().chosenSight().contains("PostingDate"));
}

}  // namespace
}  // namespace app
