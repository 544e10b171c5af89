#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "NewsroomKit/Newsrooms/PanelEditing.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using kit::GridFrame;
using ::test::until;

/// The window at a newsroom of no panels.
class NewsroomJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        openWindow();
        auto spec = kit::madeNewsroom("Harbour", "bolt", {}, {});
        id_ = spec.id.text();
        harness_.newsrooms->put(std::move(spec));
        model_->open("newsroom:" + QString::fromStdString(id_));
    }

    const kit::NewsroomSpec& spec() { return *harness_.newsrooms->newsrooms().find(id_)->value; }
    std::vector<GridFrame> frames() {
        std::vector<GridFrame> all;
        for (const auto& panel : spec().panels) all.push_back(panel.frame);
        return all;
    }
    void put(std::initializer_list<kit::PanelKind> kinds) {
        auto changed = spec();
        for (const auto kind : kinds) changed = kit::PanelEditing::added(changed, kind);
        harness_.newsrooms->put(changed);
    }
    NewsroomEditor& editor() { return *model_->editor(); }
    /// What a screen reader says of the item with the focus.
    std::string focused() {
        auto* item = window().activeFocusItem();
        return item ? nameOf(item).toStdString() : "nothing";
    }

    std::string id_;
};

TEST_F(NewsroomJobTest, ANewsroomIsBuiltFromNothingEditedAndGivenBackWithKeys) {
    press(Qt::Key_A, Qt::ShiftModifier);
    ASSERT_TRUE(until([&] { return named("Add a panel") != nullptr; }));
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(frames(), (std::vector<GridFrame>{{0, 0, 4, 4}, {4, 0, 5, 2}}));
    press(Qt::Key_Escape);
    EXPECT_TRUE(editor().isEditing()) << "only the picker is closed";
    ASSERT_TRUE(until([&] { return focused() == "Brief, Column 5, row 1 · 5 × 2"; })) << focused();

    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Latest, Column 1, row 1 · 4 × 4");
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(frames(), (std::vector<GridFrame>{{0, 0, 5, 4}, {4, 4, 5, 2}}))
        << "what is in the way goes below";
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "Latest, Column 2, row 1 · 5 × 4");
    press(Qt::Key_Tab, Qt::ShiftModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(spec().panels.size(), 1u);

    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(frames(), (std::vector<GridFrame>{{0, 0, 5, 4}, {4, 4, 5, 2}}));
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(frames(), (std::vector<GridFrame>{{1, 0, 5, 4}, {4, 4, 5, 2}}));
    press(Qt::Key_Escape, Qt::ControlModifier);
    EXPECT_TRUE(spec().panels.empty());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(spec().panels.size(), 2u);
    press(Qt::Key_Escape);
    EXPECT_FALSE(editor().isEditing());
    EXPECT_EQ(spec().panels.size(), 2u) << "what was changed stays";
    while (undo_.canUndo()) press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(spec().panels.empty());
}

TEST_F(NewsroomJobTest, PanelsAreMovedResizedAndAddedWithThePointer) {
    put({kit::PanelKind::stream, kit::PanelKind::scoops});
    click("Edit");
    ASSERT_TRUE(editor().isEditing());
    auto* grid = named("Latest, Column 1, row 1 · 4 × 4")->parentItem();
    const auto cell = [&](int column, int row) {
        const auto columnStep = (grid->width() - 2 * 20 + 12) / 12;
        return grid->mapToScene(QPointF(20 + columnStep * column + 60, 20 + 128 * row + 10))
            .toPoint();
    };
    dragTo(cell(0, 0), cell(5, 0));
    EXPECT_EQ(frames(), (std::vector<GridFrame>{{5, 0, 4, 4}, {4, 4, 5, 4}}));
    EXPECT_EQ(undo_.undoText(), "Move panel Latest");

    auto* panel = named("Latest, Column 6, row 1 · 4 × 4");
    const auto corner = panel->mapToScene(QPointF(panel->width() - 1, panel->height() - 1));
    dragTo(corner.toPoint(), corner.toPoint() + (cell(1, 0) - cell(0, 1)));
    EXPECT_EQ(frames(), (std::vector<GridFrame>{{5, 0, 5, 3}, {4, 3, 5, 4}}));

    QTest::mousePress(&window(), Qt::LeftButton, {}, cell(5, 0));
    QTest::mouseMove(&window(), cell(0, 6));
    EXPECT_NE(editor().target(), QRect(5, 0, 5, 3));
    press(Qt::Key_Escape);
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, cell(0, 6));
    EXPECT_EQ(frames(), (std::vector<GridFrame>{{5, 0, 5, 3}, {4, 3, 5, 4}}))
        << "Esc ends the drag";

    click("Add panel");
    click("Apple status");
    ASSERT_EQ(spec().panels.size(), 3u);
    EXPECT_EQ(spec().panels.back().frame, (GridFrame{0, 0, 3, 2}));
    click("Done");
    EXPECT_FALSE(editor().isEditing());
    while (undo_.canUndo()) undo_.undo();
    EXPECT_EQ(frames(), (std::vector<GridFrame>{{0, 0, 4, 4}, {4, 0, 5, 4}}));
}

TEST_F(NewsroomJobTest, PanelsKeepTheirContentsWhileOthersComeAndGo) {
    put({kit::PanelKind::stream, kit::PanelKind::stock, kit::PanelKind::status});
    auto& shown = *model_->newsroom();
    const auto contentAt = [&](int row) {
        return shown.index(row).data(NewsroomModel::Content).value<PanelModel*>();
    };
    int resets = 0;
    QObject::connect(&shown, &NewsroomModel::modelReset, &shown, [&] { ++resets; });
    auto* const first = contentAt(0);
    auto* const last = contentAt(2);
    editor().begin();
    editor().select(1);
    editor().removeSelected();
    ASSERT_EQ(shown.rowCount(), 2);
    EXPECT_EQ(contentAt(1), last);
    undo_.undo();
    ASSERT_EQ(shown.rowCount(), 3);
    EXPECT_EQ(contentAt(0), first);
    EXPECT_EQ(contentAt(2), last);
    editor().beginDrag(2, NewsroomEditor::NoEdge);
    editor().drag(-4, 0);
    EXPECT_NE(shown.index(2).data(NewsroomModel::Column), 8);
    editor().cancelDrag();
    EXPECT_EQ(shown.index(2).data(NewsroomModel::Column), 8);
    EXPECT_EQ(contentAt(2), last);
    EXPECT_EQ(resets, 0) << "a view keeps its delegates";
}

TEST_F(NewsroomJobTest, NewsroomsAreMadeOrderedRenamedAndRemovedInTheSidebar) {
    const auto names = [&] {
        QStringList all;
        for (const auto& entry : harness_.newsrooms->newsrooms().entries())
            all << QString::fromStdString(entry.name);
        return all.join(' ').toStdString();
    };
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return named("Make newsroom") != nullptr; }));
    type("Quay");
    press(Qt::Key_Return);
    ASSERT_TRUE(until([&] { return named("Make newsroom") == nullptr; }));
    EXPECT_EQ(names(), "Today Harbour Quay");
    EXPECT_EQ(model_->newsroom()->title(), "Quay");
    EXPECT_EQ(model_->newsroom()->rowCount(), 7) << "the first template";

    ASSERT_TRUE(until([&] { return named("Quay") != nullptr; }));
    const auto from = middleOf(*named("Harbour")), to = middleOf(*named("Today"));
    dragTo(from, to);
    EXPECT_EQ(names(), "Harbour Today Quay");
    named("Places")->forceActiveFocus();
    ASSERT_TRUE(until([&] { return model_->sidebar()->currentRow() == 3; }));
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(names(), "Harbour Quay Today");
    ASSERT_TRUE(until([&] { return model_->sidebar()->currentRow() == 2; }));
    press(Qt::Key_F2);
    type("Pier");
    press(Qt::Key_Return);
    EXPECT_EQ(names(), "Harbour Pier Today");
    ASSERT_TRUE(until([&] { return named("Pier") != nullptr; }));
    EXPECT_EQ(focused(), "Places");
    press(Qt::Key_Delete);
    EXPECT_EQ(names(), "Harbour Today");
    while (undo_.canUndo()) undo_.undo();
    EXPECT_EQ(names(), "Today Harbour");
}

TEST_F(NewsroomJobTest, TheOptionsOfAPanelWorkAtOnce) {
    put({kit::PanelKind::stream, kit::PanelKind::stock});
    click("Menu for Latest");
    ASSERT_TRUE(until([&] { return named("Its own words") != nullptr; }));
    click("Its own words");
    click("Words, any of them");
    type("buoy,pilot");
    press(Qt::Key_Return);
    const auto& query = spec().panels[0].query;
    ASSERT_TRUE(query.has_value());
    EXPECT_EQ(query->anyTerms, (std::vector<std::string>{"buoy", "pilot"}));
    click("Duplicate");
    EXPECT_EQ(spec().panels.size(), 3u);
    undo_.undo();
    click("Menu for AAPL");
    click("1W");
    EXPECT_EQ(spec().panels[1].options.stockRange, "1w");
    click("Remove");
    EXPECT_EQ(spec().panels.size(), 1u);
    while (undo_.canUndo()) undo_.undo();
    EXPECT_EQ(spec().panels.size(), 2u);
    EXPECT_FALSE(spec().panels[0].query.has_value());
}

TEST_F(NewsroomJobTest, TheBoardPagesThroughTheChosenNewsroomsAndIsLeftWithKeys) {
    put({kit::PanelKind::stream, kit::PanelKind::status});
    auto& board = *model_->board();
    ASSERT_TRUE(until([&] { return model_->newsroom()->rowCount() == 2; }));
    press(Qt::Key_F11);
    ASSERT_TRUE(board.isShown());
    EXPECT_EQ(window().visibility(), QWindow::FullScreen);
    ASSERT_EQ(board.count(), 2);
    EXPECT_EQ(board.newsroom()->title(), "Harbour");
    EXPECT_EQ(board.next(), "Next: Today in 60 s");
    board.tick();
    EXPECT_EQ(board.next(), "Next: Today in 59 s");
    press(Qt::Key_Space);
    for (int second = 0; second < 100; ++second) board.tick();
    EXPECT_EQ(board.newsroom()->title(), "Harbour") << "held";
    press(Qt::Key_Space);
    for (int second = 0; second < 60; ++second) board.tick();
    EXPECT_EQ(board.newsroom()->title(), "Today");
    press(Qt::Key_Left);
    EXPECT_EQ(board.newsroom()->title(), "Harbour");
    harness_.newsrooms->removeNewsroom(id_);
    EXPECT_EQ(board.newsroom()->title(), "Today") << "removed by another window";
    press(Qt::Key_Escape);
    EXPECT_FALSE(board.isShown());
    EXPECT_NE(window().visibility(), QWindow::FullScreen);

    auto& newsrooms = *model_->newsroomActions();
    newsrooms.setOnBoard(model_->placeKey(), false);
    EXPECT_FALSE(newsrooms.isOnBoard(model_->placeKey()));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(newsrooms.isOnBoard(model_->placeKey()));
}

}  // namespace
}  // namespace app
