#include <gtest/gtest.h>

#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Window/RestoreWish.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using namespace test;

using ::test::until;

class SettingsJobTest : public WindowJobTest {
protected:
    void SetUp() override { openWindow(); }
};

TEST_F(SettingsJobTest, ASettingIsFoundChangedAtOnceAndUndone) {
    press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return named("Search settings") != nullptr && isTyping(); }));
    type("dark");
    ASSERT_TRUE(until([&] { return named("Settings found: 1") != nullptr; }));
    EXPECT_FALSE(model_->appearance()->isDark());
    click("Dark");
    EXPECT_TRUE(model_->appearance()->isDark()) << "the open window follows";
    undo_.undo();
    EXPECT_FALSE(model_->appearance()->isDark());
    EXPECT_EQ(harness_.defaults.text(SettingKey::kAppearance), std::nullopt);

    click("Clear");
    type("minutes between");
    click("Minutes between refreshes");
    press(Qt::Key_A, Qt::ControlModifier);
    type("1");
    press(Qt::Key_Return);
    EXPECT_EQ(harness_.defaults.refreshMinutes(), 5) << "two minutes are the least";
    EXPECT_TRUE(until([&] {
        return named("\"1\" is not a whole number from 2 to 1440, which refreshMinutes needs.");
    }));
    press(Qt::Key_A, Qt::ControlModifier);
    type("7");
    press(Qt::Key_Return);
    EXPECT_EQ(harness_.defaults.refreshMinutes(), 7);
    click("Back to the default: Minutes between refreshes");
    EXPECT_EQ(harness_.defaults.text(SettingKey::kRefreshMinutes), std::nullopt);
}

TEST_F(SettingsJobTest, ABackupIsRestoredAtTheSecondPressByADeskThatIsClosed) {
    const auto library = harness_.desk.library();
    const auto backup = Backups(library).make(harness_.desk.clock()());
    RestoreWish wish;
    QObject::connect(model_.get(), &WindowModel::restoreWanted,
                     [&](const QString& file) { wish.backup = file.toStdString(); });
    press(Qt::Key_Comma, Qt::ControlModifier);
    click("Library");
    const auto moment = momentText(backup.made, harness_.desk.clock()());
    click("Backup, " + moment + ": Restore…");
    EXPECT_FALSE(wish.backup.has_value()) << "it asks first";
    click("Backup, " + moment + ": Restore now");
    ASSERT_EQ(wish.backup, backup.file);

    const ::test::TemporaryFolder folder;
    const auto other = folder.path() / "library.sqlite";
    LocalStore::begin(other);
    LocalStore(other, Database::Access::readWrite).state().setNumber("mark", 1);
    fulfil(wish, other, backup.made);
    EXPECT_EQ(LocalStore(other, Database::Access::readOnly).state().number("mark"), std::nullopt);
    EXPECT_TRUE(wish.outcome.contains(QString::fromStdString(backup.file.filename().string())));
    EXPECT_FALSE(wish.backup.has_value()) << "once";

    wish.backup = folder.path() / "absent.sqlite";
    fulfil(wish, other, backup.made);
    EXPECT_TRUE(wish.outcome.startsWith("The library was not restored"))
        << wish.outcome.toStdString();
}

}  // namespace
}  // namespace app
