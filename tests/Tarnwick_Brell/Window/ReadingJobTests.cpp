#include <gtest/gtest.h>

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>

#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// A desk with stories of the harbour, at the wire.
class ReadingJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        for (int i = 1; i <= 9; ++i) {
            harness_.tell(harness_.story(
                "tide", i * 30,
                (i % 3 == 0 ? "Orchard/news " : "Harbour news ") + std::to_string(i)));
        }
        openWindow();
        type("gw");
        ASSERT_TRUE(until([&] { return model_->storyList()->list()->count() == 9; }));
    }

    void openFind() {
        press(Qt::Key_G, Qt::ControlModifier);
        ASSERT_TRUE(until([&] { return isTyping(); }));
    }
    static QQuickItem* listBelow(QQuickItem* item, const QString& name) {
        if (!item->isVisible()) return nullptr;
        if (item->inherits("QQuickListView") && nameOf(item) == name) return item;
        for (auto* child : item->childItems()) {
            if (auto* found = listBelow(child, name)) return found;
        }
        return nullptr;
    }
    QQuickItem* list(const QString& name) { return listBelow(window().contentItem(), name); }
    static QString spokenRow(const QQuickItem& list) {
        auto* row = list.property("currentItem").value<QQuickItem*>();
        if (!row || !nameOf(row).isEmpty()) return row ? nameOf(row) : QString();
        // A row that opens in place is within an item that stands for both.
        for (auto* part : row->childItems())
            if (!nameOf(part).isEmpty()) return nameOf(part);
        return {};
    }
};

TEST_F(ReadingJobTest, TheTextOfAPageIsReadInTheReaderAndHiddenAgain) {
    press(Qt::Key_J);
    ASSERT_TRUE(until([&] { return !model_->selectedStory()->reader()->link().isEmpty(); }));
    const QUrl link(model_->selectedStory()->reader()->link());
    std::string body = "<html><body><nav>Menu</nav><article><h1>Harbour news</h1>";
    for (int i = 0; i < 6; ++i)
        body += "<p>The tide came in at noon, and the keeper of the light wrote it down.</p>";
    harness_.desk.http.script.on(link.host().toStdString(), link.path().toStdString(),
                                 {{.status = 404}, {.body = body + "</article></body></html>"}});
    auto& article = *model_->selectedStory()->reader()->article();
    press(Qt::Key_A);
    ASSERT_TRUE(until([&] { return article.state() == ArticleModel::Failed; }));
    EXPECT_FALSE(article.message().isEmpty());
    article.retry();
    ASSERT_TRUE(until([&] { return article.state() == ArticleModel::Ready; }));
    EXPECT_TRUE(article.text().contains("keeper of the light"));
    EXPECT_FALSE(article.text().contains("Menu"));
    press(Qt::Key_A);
    EXPECT_EQ(article.state(), ArticleModel::Idle);
}

TEST_F(ReadingJobTest, TheStoryInTheReaderIsPrintedAndSavedAsPDFWithKeys) {
    const QTemporaryDir home;
    const auto before = qgetenv("HOME"), settings = qgetenv("XDG_CONFIG_HOME");
    qputenv("HOME", home.path().toUtf8());
    qunsetenv("XDG_CONFIG_HOME");
    int prints = 0;
    QObject::connect(model_.get(), &WindowModel::printWanted, [&] { ++prints; });
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(prints, 0) << "no story is in the reader";

    type("j");
    ASSERT_EQ(model_->selectedStory()->reader()->title(), "Orchard/news 9");
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(prints, 1);
    press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QDir(home.filePath("Downloads")).entryList(QDir::Files).join('|'),
              "Orchard news 9 2.pdf|Orchard news 9.pdf");
    EXPECT_EQ(noticed_.back(), "Saved as " + home.filePath("Downloads/Orchard news 9 2.pdf."));
    qputenv("HOME", before);
    if (!settings.isEmpty()) qputenv("XDG_CONFIG_HOME", settings);
}

TEST_F(ReadingJobTest, WordsAreFoundInTheListWithoutFilteringIt) {
    auto& find = *model_->find();
    const auto row = [&] { return model_->selectedStory()->row(); };
    type("jj");
    openFind();
    type("chard n");
    EXPECT_EQ(find.summary(), "No matches") << "the headlines have a slash there";
    find.setText("ÓRCHARD");
    EXPECT_EQ(find.summary(), "2 of 3") << "the first from the chosen row on";
    EXPECT_EQ(row(), 3);
    EXPECT_EQ(model_->storyList()->list()->count(), 9);

    const struct {
        int key;
        Qt::KeyboardModifiers modifiers;
        const char* summary;
        int row;
    } steps[] = {{Qt::Key_Return, {}, "3 of 3", 6},
                 {Qt::Key_F3, {}, "1 of 3", 0},
                 {Qt::Key_F3, Qt::ShiftModifier, "3 of 3", 6},
                 {Qt::Key_Return, Qt::ShiftModifier, "2 of 3", 3}};
    for (const auto& step : steps) {
        press(step.key, step.modifiers);
        EXPECT_EQ(find.summary(), step.summary);
        EXPECT_EQ(row(), step.row);
    }
    harness_.come({harness_.story("tide", 700, "Orchard: the tenth")});
    model_->storyList()->showArrivals();
    EXPECT_TRUE(until([&] { return find.summary() == "3 of 4"; })) << find.summary().toStdString();
    EXPECT_EQ(row(), 4) << "the choice stays";

    press(Qt::Key_Escape);
    EXPECT_EQ(named("Find in page"), nullptr);
    press(Qt::Key_Down);
    EXPECT_EQ(row(), 5) << "the list has the focus again";
    press(Qt::Key_F3);
    EXPECT_EQ(find.summary(), "4 of 4") << "opened again with the last words";
}

TEST_F(ReadingJobTest, WordsAreFoundInTablesAndPanels) {
    auto& find = *model_->find();
    type("gf");
    ASSERT_TRUE(until([&] { return list("Sources") != nullptr; }));
    openFind();
    find.setText("six col");
    ASSERT_TRUE(find.hasMatches()) << find.summary().toStdString();
    EXPECT_TRUE(spokenRow(*list("Sources")).startsWith("Six Colors"));
    press(Qt::Key_Escape);

    type("gt");
    ASSERT_TRUE(until([&] { return list("Stories") != nullptr; }));
    list("Stories")->setProperty("currentIndex", 0);
    openFind();
    find.setText("orchard/NEWS 3");
    EXPECT_TRUE(find.hasMatches());
    EXPECT_TRUE(spokenRow(*list("Stories")).contains("Orchard/news 3"));
}

TEST_F(ReadingJobTest, ARowOfAPanelHasAMenuWithTheButtonAndWithAKey) {
    type("gt");
    ASSERT_TRUE(until([&] { return list("Stories") != nullptr; }));
    list("Stories")->forceActiveFocus();
    press(Qt::Key_F10, Qt::ShiftModifier);
    click("Copy the story's link");
    EXPECT_EQ(noticed_.back(), "Link copied.");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "https://tide.example/270");
    ASSERT_TRUE(until([&] { return named("Copy the story's link") == nullptr; }));
    click("Unread, Harbour news 8, tide, 8 h", Qt::RightButton);
    click("Save story");
    EXPECT_TRUE(harness_.news->isSaved(harness_.idOf("Harbour news 8")));
}

}  // namespace
}  // namespace app
