#include <gtest/gtest.h>

#include <QQuickItem>

#include "tests/Tarnwick_Brell/Pictures/TestPictures.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::runFor;
using ::test::until;

/// A desk with six stories that name pictures, the last of which their server does not have.
class PictureJobTest : public WindowJobTest {
protected:
    static constexpr int kStories = 6;

    void SetUp() override {
        for (int i = 1; i <= kStories; ++i) {
            auto story = harness_.story("tide", i, "Harbour news " + std::to_string(i));
            story.imageURL = "https://pictures.example/" + std::to_string(i);
            harness_.tell(story);
            if (i == kStories) continue;
            harness_.desk.http.script.on("pictures.example", "/" + std::to_string(i),
                                         {{.body = pictureFile(320, 180),
                                           .delivery = {.delay = std::chrono::milliseconds(50)}}});
        }
        openWindow();
        type("gw");
        ASSERT_TRUE(until([&] { return rows().size() == kStories; }));
    }

    std::size_t requests() const {
        std::size_t count = 0;
        for (int i = 1; i <= kStories; ++i)
            count += harness_.desk.http.script.requests("pictures.example", "/" + std::to_string(i))
                         .size();
        return count;
    }
    std::vector<QQuickItem*> rows() { return all("storyID"); }
    double heightOfRows() {
        double height = 0;
        for (const auto* row : rows()) height += row->height();
        return height;
    }
    /// Pictures that can be seen.
    std::size_t shown() {
        const auto images = all("isThere");
        return static_cast<std::size_t>(std::ranges::count_if(
            images, [](auto* image) { return image->property("isThere").toBool(); }));
    }

private:
    /// The visible items with that property.
    std::vector<QQuickItem*> all(const char* property) {
        std::vector<QQuickItem*> found;
        const auto collect = [&](auto& self, QQuickItem* item) -> void {
            if (item->property(property).isValid()) found.push_back(item);
            for (auto* child : item->childItems()) {
                if (child->isVisible() || child->property(property).isValid()) self(self, child);
            }
        };
        collect(collect, window().contentItem());
        return found;
    }
};

TEST_F(PictureJobTest, TheyAreFetchedOnceTheyAreSwitchedOnAndNothingMovesWhenTheyCome) {
    type("jj");
    runFor(std::chrono::milliseconds(200));
    EXPECT_EQ(requests(), 0);
    const auto without = heightOfRows();

    press(Qt::Key_I, Qt::ShiftModifier);
    ASSERT_TRUE(until([&] { return heightOfRows() > without; }));
    EXPECT_EQ(shown(), 0);
    const auto with = heightOfRows();
    // Those of the list and the one in the reader, which is the same as its row's.
    EXPECT_TRUE(until([&] { return shown() == kStories; })) << shown();
    EXPECT_EQ(heightOfRows(), with);
    EXPECT_EQ(requests(), kStories);

    press(Qt::Key_I, Qt::ShiftModifier);
    ASSERT_TRUE(until([&] { return heightOfRows() == without; }));
    press(Qt::Key_K);
    runFor(std::chrono::milliseconds(100));
    EXPECT_EQ(shown(), 0);
    EXPECT_EQ(requests(), kStories);
}

}  // namespace
}  // namespace app
