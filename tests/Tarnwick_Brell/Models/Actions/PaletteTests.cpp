#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "Tarnwick_Brell/Models/Actions/PaletteModel.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "tests/support/app/TestDesk.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

/// "Save [sto]ry"
std::string marked(const QList<PalettePart>& parts) {
    QString text;
    for (const auto& part : parts) text += part.isMatch ? '[' + part.text + ']' : part.text;
    return text.toStdString();
}

TEST(PaletteQuery, FindsWordsWhateverTheirSpellingAndMarksTheirLetters) {
    struct Case {
        const char* typed;
        const char* text;
        const char* expected;  ///< null: no match
        int rank;
    };
    const Case cases[] = {
        {"", "Save story", "Save story", 0},
        {"sto", "Save story", "Save [sto]ry", 0},
        {"STO ", "App Store rules", "App [Sto]re rules", 0},
        {"tor", "App Store rules", "App S[tor]e rules", 1},
        // The beginning of a later word before the inside of an earlier one.
        {"red", "Shared, then redone", "Shared, then [red]one", 0},
        {"st sa", "Save story", "[Sa]ve [st]ory", 0},
        {"cafe", "Le Cafe\u0301 ferme", "Le [Cafe\u0301] ferme", 0},
        {"élan", "ELAN", "[ELAN]", 0},
        {"stras", "Hauptstraße", "Haupt[straß]e", 1},
        {"s", "ß", "[ß]", 0},
        {"ap app", "Apps", "[App]s", 0},
        {"story gone", "Save story", nullptr, 0},
    };
    for (const auto& c : cases) {
        const auto match = PaletteQuery(c.typed).match(c.text);
        ASSERT_EQ(match.has_value(), c.expected != nullptr) << c.typed;
        if (!match) continue;
        EXPECT_EQ(marked(match->parts), c.expected);
        EXPECT_EQ(match->rank, c.rank) << c.typed;
    }
}

class PaletteModelTest : public ::testing::Test {
protected:
    void SetUp() override {
        harness_.serve("a.example", {test::TestDesk::feed("a.example", 1, 9)});
        desk_.start();
        ASSERT_TRUE(::test::until([&] { return desk_.stories().size() == 9; }));
        palette_.open();
    }

    /// "Group: text" for each row.
    std::string lines() const {
        std::string lines;
        for (const auto& row : palette_.list())
            lines += row.groupTitle.toStdString() + ": " + marked(row.parts) + '\n';
        return lines;
    }

    test::TestDesk harness_{{"a.example"}};
    Defaults defaults_{harness_.folder.path() / "settings.ini"};
    NewsDesk desk_{harness_.library(), harness_.network(), defaults_, harness_.clock()};
    ActionModel actions_;
    PaletteModel palette_{actions_,
                          [] {
                              return std::vector<PalettePlace>{
                                  {"w", "Historic reports", "tray", "Wire"},
                                  {"b", "App Store rules", "number", "Beat"}};
                          },
                          desk_, harness_.clock()};
};

TEST_F(PaletteModelTest, GroupsStandInOneOrderAndWordStartsComeFirst) {
    palette_.setText("sto");
    EXPECT_EQ(lines(),
              "Go to: App [Sto]re rules\n"
              "Go to: Next [sto]ry\n"
              "Go to: Previous [sto]ry\n"
              "Go to: Page on, then next unread [sto]ry\n"
              "Go to: Next unread [sto]ry\n"
              "Go to: Previous unread [sto]ry\n"
              "Go to: Hi[sto]ric reports\n"
              "Do: Search [sto]ries\n"
              "Do: Mark all [sto]ries in this list read\n"
              "Stories: Search every [sto]ry for “sto”\n");
    EXPECT_EQ(palette_.countText(), "10 matches");
    int headings = 0;
    for (const auto& row : palette_.list()) headings += row.heading.isEmpty() ? 0 : 1;
    EXPECT_EQ(headings, 3);
    actions_.setProperty("hasStory", true);
    EXPECT_EQ(lines().substr(0, 25), "This story: Save [sto]ry\n");
    EXPECT_EQ(palette_.list().at(0).keyCaps, QStringList{"s"});
}

TEST_F(PaletteModelTest, TheNewestStoriesComeAndTheSelectionStaysOnItsRow) {
    palette_.setText("example");
    EXPECT_EQ(lines(), "Stories: Search every story for “[example]”\n");
    EXPECT_EQ(palette_.selected(), 0);
    ASSERT_TRUE(::test::until([&] { return palette_.list().size() == 7; }));
    EXPECT_EQ(palette_.selected(), 6) << "still the search";
    EXPECT_EQ(marked(palette_.list().at(0).parts), "a.[example] 9");
    EXPECT_EQ(palette_.list().at(0).note.section(',', 0, 0), "a.example");

    // Until the next answer those stay that still fit.
    palette_.setText("example 9");
    EXPECT_EQ(palette_.list().size(), 2u);
    EXPECT_EQ(palette_.selected(), 0);
    palette_.setText("");
    EXPECT_EQ(lines().find("Stories:"), std::string::npos);
    palette_.moveBy(-3);
    EXPECT_EQ(palette_.selected(), 0);
    palette_.moveBy(1000);
    EXPECT_EQ(palette_.selected(), static_cast<int>(palette_.list().size()) - 1);
}

TEST_F(PaletteModelTest, TheSelectedRowSaysWhatIsWanted) {
    std::string wanted;
    QObject::connect(&palette_, &PaletteModel::actionWanted,
                     [&](Action action) { wanted = "action " + std::to_string(action); });
    QObject::connect(&palette_, &PaletteModel::placeWanted,
                     [&](const QString& key) { wanted = "place " + key.toStdString(); });
    QObject::connect(&palette_, &PaletteModel::storyWanted,
                     [&](const QString& id) { wanted = "story " + id.toStdString(); });
    QObject::connect(&palette_, &PaletteModel::searchWanted,
                     [&](const QString& text) { wanted = "search " + text.toStdString(); });
    struct Case {
        const char* typed;
        std::string wanted;
    };
    const Case cases[] = {
        {"refresh", "action " + std::to_string(DeskAction::Refresh)},
        {"app rules", "place b"},
        {" no such  thing ", "search no such thing"},
        {"a.example 9", "story " + std::string(desk_.stories()[0].id())},
    };
    for (const auto& c : cases) {
        palette_.setText(c.typed);
        const auto size = c.wanted.starts_with("story") ? 2u : 1u;
        ASSERT_TRUE(::test::until([&] { return palette_.list().size() >= size; }));
        palette_.select(0);
        palette_.runSelected();
        EXPECT_EQ(wanted, c.wanted);
    }
}

}  // namespace
}  // namespace app
