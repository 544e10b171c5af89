#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Window/FindInPage.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using ::test::until;

/// A page of one list.
class FindInPageTest : public ::testing::Test {
protected:
    void SetUp() override {
        QObject::connect(&find_, &FindInPage::partsWanted, [this] {
            find_.setParts({{.rows = [this] { return count_; },
                             .mentions =
                                 [this](const kit::TermFinder& finder, int row) {
                                     ++asked_;
                                     return finder.admits(text_(row), {});
                                 },
                             .show = [this](int row) { chosen_ = row; },
                             .chosen = chosen_}});
        });
        find_.open();
    }

    FindInPage find_;
    int count_ = 4;
    std::function<std::string_view(int)> text_ = [](int row) {
        static constexpr std::string_view rows[] = {"Tide", "straße", "Ebb and tides", "Flut"};
        return rows[row];
    };
    int chosen_ = -1;
    int asked_ = 0;
};

TEST_F(FindInPageTest, CaseAccentsAndPartsOfWordsMatch) {
    const struct {
        const char* text;
        const char* summary;
        int row;
    } cases[] = {{"TIDE", "1 of 2", 0}, {"strasse", "1 of 1", 1}, {"d t", "1 of 1", 2},
                 {"lüt", "1 of 1", 3},  {"x", "No matches", -1},  {" ", "", -1}};
    for (const auto& each : cases) {
        chosen_ = -1;
        find_.setText(each.text);
        EXPECT_EQ(find_.summary(), each.summary) << each.text;
        EXPECT_EQ(chosen_, each.row) << each.text;
        find_.setText({});
    }
    find_.setText("STRASSE");
    EXPECT_EQ(find_.ranges("die Straße"), (std::vector<std::pair<int, int>>{{4, 6}}));
    EXPECT_TRUE(find_.ranges("die Flut").empty());
}

TEST_F(FindInPageTest, APageOfManyRowsIsSearchedInSlicesThatEndWithTheirWords) {
    const std::string other(400, 'x');
    count_ = 300'000;
    text_ = [&](int row) {
        return row + 1 < count_ ? std::string_view(other) : std::string_view("tide");
    };
    find_.setText("tide");
    EXPECT_EQ(find_.summary(), "Searching…");
    EXPECT_LT(asked_, count_);
    find_.setText("ebb");
    asked_ = 0;
    EXPECT_TRUE(until([&] { return find_.summary() == "No matches"; }));
    EXPECT_LE(asked_, count_) << "only the last words are searched";
    find_.setText("TIDE");
    EXPECT_TRUE(until([&] { return find_.summary() == "1 of 1"; }));
    EXPECT_EQ(chosen_, 299'999);
}

}  // namespace
}  // namespace app
