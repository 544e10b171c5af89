#include <gtest/gtest.h>

#include <QDir>
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
};

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

}  // namespace
}  // namespace app
