#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Pages/SourcesPageModel.h"
#include "Tarnwick_Brell/Models/Sheets/ExportOutlinesSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/ImportOutlinesSheetModel.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

constexpr int kMenuFades = 200;

/// The window at the table of sources, one of which fails.
class SourceJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        LocalStore(harness_.desk.library(), Database::Access::readWrite)
            .sources()
            .add(TestDesk::source("pier.example"));
        harness_.desk.http.script.on("pier.example", "/feed", {{.status = 410}});
        openWindow();
        press(Qt::Key_G);
        press(Qt::Key_F);
        ASSERT_TRUE(until([&] { return model_->page() != nullptr; }));
    }

    bool has(const std::string& name) {
        const auto& sources = harness_.news->sources();
        return std::ranges::find(sources, name, &kit::NewsSource::name) != sources.end();
    }
    bool isOn(const char* id) { return harness_.news->enabledSourceIDs().contains(id); }
    ::testing::AssertionResult isFocused(const QString& name) {
        const auto focused = [&] {
            auto* item = window().activeFocusItem();
            return item ? nameOf(item) : QString();
        };
        if (until([&] { return focused() == name; })) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << focused().toStdString() << " has the focus";
    }
    /// Chooses the source by typing.
    void findPier() {
        press(Qt::Key_F, Qt::ControlModifier);
        ASSERT_TRUE(isFocused("Filter sources"));
        type("pier");
        press(Qt::Key_Return);
        ASSERT_TRUE(isFocused("pier.example, Added by you, The server answered 410. Since 12:00."));
    }
    QString file(const char* name, const QByteArray& text) {
        const auto path = QString::fromStdString((harness_.desk.folder.path() / name).string());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return path;
    }
};

TEST_F(SourceJobTest, ASourceIsAddedFromThePastedAddressOfAPage) {
    harness_.desk.http.script.on(
        "harbour.example", "/about",
        {{.body = "<html><head><title>Harbour Notes</title><link rel='alternate' "
                  "type='application/rss+xml' href='/feed'><link rel='alternate' "
                  "type='application/rss+xml' href='/comments'></head></html>"}});
    harness_.desk.serve("harbour.example", {TestDesk::feed("harbour.example", 1, 3)});
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(isFocused("Address"));
    QGuiApplication::clipboard()->setText("https://harbour.example/about");
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Return);
    ASSERT_TRUE(until([&] {
        return named("https://harbour.example/about, A page, it names 2 feeds") &&
               named("https://harbour.example/feed, A feed with 3 stories") &&
               named("https://harbour.example/comments, Not tried");
    }));
    ASSERT_TRUE(
        until([&] { return named("Preview with the labels they will get, 3 of 3") != nullptr; }));
    press(Qt::Key_Return);
    EXPECT_TRUE(until([&] { return has("harbour.example"); }));
    EXPECT_EQ(model_->sheet(), nullptr);
    EXPECT_TRUE(until([&] { return harness_.news->stories().size() == 3; })) << "fetched at once";
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return !has("harbour.example"); }));
}

TEST_F(SourceJobTest, AListOfFeedsIsLookedAtPickedFromImportedAndTakenBack) {
    const auto path = file("list.opml",
                           "<opml version='2.0'><head><title>Quay</title></head><body>"
                           "<outline text='Tide Tables' xmlUrl='https://tide.example/rss'/>"
                           "<outline text='Kelp Weekly' xmlUrl='https://kelp.example/rss'/>"
                           "<outline text='Pier' xmlUrl='https://pier.example/feed'/>"
                           "<outline text='Old' xmlUrl='http://old.example/rss'/></body></opml>");
    model_->drop({QUrl::fromLocalFile(path)}, {});
    ASSERT_TRUE(until([&] { return named("Kelp Weekly, https://kelp.example/rss") != nullptr; }));
    EXPECT_NE(named("Known 1"), nullptr);
    click("Refused 1");
    EXPECT_TRUE(until([&] { return named("Old, not https") != nullptr; }));
    click("New 2");
    ASSERT_TRUE(until([&] { return named("Kelp Weekly, https://kelp.example/rss") != nullptr; }));
    ASSERT_TRUE(isFocused("Entries of the list"));
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return has("Kelp Weekly"); }));
    EXPECT_FALSE(has("Tide Tables")) << "it was not picked";
    EXPECT_TRUE(until([&] { return model_->sheet() == nullptr; }));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return !has("Kelp Weekly"); }));
}

TEST_F(SourceJobTest, PickedSourcesAreExportedToAListThatIsImportedAgain) {
    const auto path = QString::fromStdString((harness_.desk.folder.path() / "out.opml").string());
    const auto exported = [&] {
        QFile list(path);
        return list.open(QIODevice::ReadOnly) ? list.readAll() : QByteArray();
    };
    press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(isFocused("Sources to export"));
    // The pointer chooses which, and leaves one group out.
    click("Added by you");
    EXPECT_TRUE(until([&] { return named("1 sources") != nullptr; }));
    // On a slow machine the rows above it may move once more, after the click has been aimed.
    click("File");
    waitForFrame();
    if (nameOf(window().activeFocusItem()) != "File") click("File");
    ASSERT_TRUE(isFocused("File"));
    const auto typed = [&] {
        return dynamic_cast<ExportOutlinesSheetModel&>(*model_->sheet()).path();
    };
    // A click that is still on its way would end the selection.
    for (int attempt = 0; attempt < 3 && typed() != path; ++attempt) {
        press(Qt::Key_A, Qt::ControlModifier);
        type(path.toUtf8().constData());
    }
    ASSERT_EQ(typed(), path);
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return model_->sheet() == nullptr; }));
    EXPECT_TRUE(exported().contains("https://pier.example/feed")) << exported().toStdString();
    EXPECT_EQ(exported().count("xmlUrl"), 1);

    // By keys alone: everything, then without the first group.
    press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(isFocused("Sources to export"));
    press(Qt::Key_Home);
    press(Qt::Key_Space);
    auto& sheet = dynamic_cast<ExportOutlinesSheetModel&>(*model_->sheet());
    sheet.setPath(path);
    ASSERT_TRUE(until([&] { return named("Replace the file") != nullptr; }));
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return model_->sheet() == nullptr; }));
    EXPECT_GT(exported().count("xmlUrl"), 5);

    harness_.news->removeSources({"pier.example"});
    ASSERT_TRUE(until([&] { return !has("pier.example"); }));
    model_->showSheet("import-outlines:" + path);
    ASSERT_TRUE(until([&] { return named("New 1") != nullptr; })) << "the others are known";
}

TEST_F(SourceJobTest, TheLargestListIsShownInFewRowsAndSearched) {
    QByteArray text = "<opml><body>";
    for (int i = 0; i < 5000; ++i) {
        const auto number = QByteArray::number(i);
        text += "<outline text='Quay " + number + "' xmlUrl='https://q" + number + ".example/f'/>";
    }
    model_->showSheet("import-outlines:" + file("all.opml", text + "</body></opml>"));
    ASSERT_TRUE(until([&] { return named("Quay 0, https://q0.example/f") != nullptr; }));
    EXPECT_NE(named("New 5000"), nullptr);
    EXPECT_LT(named("Entries of the list")->findChildren<QQuickItem*>().size(), 2000)
        << "rows out of sight are not made";
    ASSERT_TRUE(isFocused("Entries of the list"));
    click("Filter");
    ASSERT_TRUE(isFocused("Filter"));
    type("q4999.");
    EXPECT_TRUE(until([&] { return named("Quay 4999, https://q4999.example/f") != nullptr; }));
    EXPECT_EQ(named("Quay 0, https://q0.example/f"), nullptr);
}

TEST_F(SourceJobTest, AFileThatIsNoListIsRefusedInWords) {
    for (const auto& [name, text, words] :
         {std::tuple{"notes.txt", "Buy rope.", "The file is not a list of feeds (OPML)."},
          std::tuple{"half.opml", "<opml><body><outline",
                     "The list of feeds is damaged or incomplete."}}) {
        model_->showSheet("import-outlines:" + file(name, text));
        EXPECT_TRUE(until([&] { return named(words) != nullptr; })) << name;
    }
    model_->showSheet("import-outlines:/nowhere/list.opml");
    EXPECT_TRUE(until(
        [&] { return named("list.opml can't be read: No such file or directory.") != nullptr; }));
}

TEST_F(SourceJobTest, ASourceIsFoundByTypingAndSwitchedOffAndOnAgain) {
    findPier();
    ASSERT_TRUE(isOn("pier.example"));
    press(Qt::Key_X, Qt::ShiftModifier);
    EXPECT_TRUE(until([&] { return !isOn("pier.example"); }));
    EXPECT_TRUE(until([&] { return named("Fetch pier.example") != nullptr; })) << "it stays listed";
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return isOn("pier.example"); }));
    click("Fetch pier.example");
    EXPECT_TRUE(until([&] { return !isOn("pier.example"); }));
}

TEST_F(SourceJobTest, WhyASourceFailsIsFoundInItsOpenRow) {
    findPier();
    press(Qt::Key_F, Qt::ShiftModifier);
    press(Qt::Key_Return);
    EXPECT_TRUE(until([&] { return named("Details of pier.example") != nullptr; }));
    EXPECT_TRUE(until([&] { return named("The last 7 days, 1 of 1 fetches failed") != nullptr; }));
    EXPECT_NE(named("The server answered 410."), nullptr);
    click("Copy the report");
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              "pier.example (https://pier.example/feed): The server answered 410. Since 12:00.");
    press(Qt::Key_Escape);
    EXPECT_TRUE(until([&] { return named("Details of pier.example") == nullptr; }));
}

TEST_F(SourceJobTest, OptionsOfASourceWorkAtOnceAndAreUndone) {
    const auto options = [&] {
        const auto& all = harness_.news->sourceOptions();
        const auto entry = all.find("pier.example");
        return entry == all.end() ? SourceOptions{} : entry->second;
    };
    findPier();
    press(Qt::Key_Return);
    click("Not in All");
    EXPECT_TRUE(until([&] { return options().notInAll; }));
    press(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(until([&] { return options().onlyApple == true; }));
    press(Qt::Key_I, Qt::AltModifier);
    ASSERT_TRUE(until([&] { return named("Every 3 hours") != nullptr; }));
    QTest::qWait(kMenuFades);
    click("Every 3 hours");
    EXPECT_TRUE(until([&] { return options().minimumInterval == 10800; }));
    EXPECT_TRUE(until([&] { return named("Every 3 hours") == nullptr; })) << "the menu closes";
    for (int step = 0; step < 3; ++step) press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return options() == SourceOptions{}; }));
}

TEST_F(SourceJobTest, WhatAHostAskedForAndHowOftenItWasAskedIsSaid) {
    ASSERT_TRUE(
        until([&] { return harness_.news->sourceStatus("pier.example").lastError.has_value(); }));
    LocalStore(harness_.desk.library(), Database::Access::readWrite)
        .hostPauses()
        .set("pier.example", harness_.desk.clock()() + std::chrono::minutes(20));
    harness_.news->setSourceOptions("pier.example", {.notInAll = true});
    const auto& rows = dynamic_cast<SourcesPageModel&>(*model_->page()).rows()->rows();
    EXPECT_TRUE(until([&] {
        const auto row = std::ranges::find(rows, "pier.example", &SourceTableRow::name);
        return row != rows.end() && row->nextTry == "12:20";
    }));
    press(Qt::Key_Comma, Qt::ControlModifier);
    click("Privacy");
    EXPECT_TRUE(until([&] {
        return named(
                   "1 sources · every 5 minutes · fetched 1 times in 7 days · last asked 12:00") !=
               nullptr;
    }));
}

TEST_F(SourceJobTest, StoriesOfASourceThatIsNotInAllStayInItsOwnList) {
    harness_.come({harness_.story("pier.example", 60, "The tide falls early")});
    model_->open(QStringLiteral("wire:all"));
    const auto& list = *model_->storyList()->list();
    ASSERT_TRUE(until([&] { return list.count() == 1; }));
    harness_.news->setSourceOptions("pier.example", {.notInAll = true});
    EXPECT_TRUE(until([&] { return list.count() == 0; }));
    model_->open(QStringLiteral("source:pier.example"));
    EXPECT_TRUE(until([&] { return list.count() == 1; }));
}

}  // namespace
}  // namespace app
