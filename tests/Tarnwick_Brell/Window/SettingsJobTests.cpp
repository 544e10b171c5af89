#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Settings/LibraryStatus.h"
#include "Tarnwick_Brell/Models/Settings/LibraryWorkModel.h"
#include "Tarnwick_Brell/Models/Settings/SettingFacts.h"
#include "Tarnwick_Brell/Models/Sheets/SettingsSheetModel.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Window/LibraryWish.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using namespace test;

using ::test::until;

class SettingsJobTest : public WindowJobTest {
protected:
    void SetUp() override { openWindow(); }

    QString outcomeOf(const LibraryWork& work, const std::filesystem::path& library) {
        LibraryWorkModel model(work, library, harness_.desk.clock(), "a test");
        model.start();
        EXPECT_TRUE(until([&] { return !model.outcome().isEmpty(); }));
        return model.outcome();
    }

    /// In the window about the library, once it asks.
    void clickInNotice(const QString& button) {
        for (auto* shown : QGuiApplication::topLevelWindows()) {
            auto* notice = qobject_cast<QQuickWindow*>(shown);
            if (!notice || notice == &window() || !notice->isVisible()) continue;
            const auto* repair = below(notice->contentItem(), "Repair");
            if (!repair || !repair->isEnabled()) continue;
            if (auto* item = below(notice->contentItem(), button))
                QTest::mouseClick(notice, Qt::LeftButton, {}, middleOf(*item));
        }
    }
};

TEST_F(SettingsJobTest, QuietHoursAreDrawnOnTheirDayAndTheirWeekdaysChosenOneByOne) {
    harness_.defaults.set(SettingKey::kQuietHours, "true");
    EXPECT_EQ(quietBand(harness_.defaults, harness_.at("00:00")).size(), 3);
    EXPECT_EQ(quietBand(harness_.defaults, harness_.at("00:00")).at(0), 22.5 / 24);
    EXPECT_EQ(quietBand(harness_.defaults, harness_.at("00:00")).at(1), 7.0 / 24);
    press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return named("Search settings") != nullptr && isTyping(); }));
    type("quietweekdays");
    click("Mon");
    EXPECT_EQ(harness_.defaults.value(SettingKey::kQuietWeekdays), "tue, wed, thu, fri, sat, sun");
    click("Sun");
    click("Mon");
    EXPECT_EQ(harness_.defaults.value(SettingKey::kQuietWeekdays), "mon, tue, wed, thu, fri, sat");
    undo_.undo();
    EXPECT_EQ(harness_.defaults.value(SettingKey::kQuietWeekdays), "tue, wed, thu, fri, sat");
}

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
    std::optional<LibraryWork> wanted;
    QObject::connect(model_.get(), &WindowModel::libraryWorkWanted,
                     [&](const LibraryWork& work) { wanted = work; });
    press(Qt::Key_Comma, Qt::ControlModifier);
    constexpr int kLibrarySection = 5;
    dynamic_cast<SettingsSheetModel&>(*model_->sheet()).setSection(kLibrarySection);
    const auto moment = momentText(backup.made, harness_.desk.clock()());
    click("Backup, " + moment + ": Restore…");
    EXPECT_FALSE(wanted.has_value()) << "it asks first";
    click("Backup, " + moment + ": Restore now");
    ASSERT_TRUE(wanted.has_value());
    EXPECT_EQ(wanted->backup, backup.file);

    const ::test::TemporaryFolder folder;
    const auto other = folder.path() / "library.sqlite";
    LocalStore::begin(other);
    LocalStore(other, Database::Access::readWrite).state().setNumber("mark", 1);
    EXPECT_TRUE(outcomeOf(*wanted, other)
                    .contains(QString::fromStdString(backup.file.filename().string())));
    EXPECT_EQ(LocalStore(other, Database::Access::readOnly).state().number("mark"), std::nullopt);
    const auto failed = outcomeOf({.backup = folder.path() / "absent.sqlite"}, other);
    EXPECT_TRUE(failed.startsWith("The library is as it was: ")) << failed.toStdString();
}

TEST_F(SettingsJobTest, ADamagedLibraryIsRepairedOnceItIsSaidWhatIsKept) {
    const ::test::TemporaryFolder folder;
    const auto library = folder.path() / "library.sqlite";
    {
        LocalStore store(library, Database::Access::readWrite);
        auto transaction = store.transaction();
        store.merging().merge(std::vector{harness_.story("tide.example", 0, "The tide turns")},
                              {.seen = harness_.desk.clock()()}, store.state().nextStamp());
        transaction.commit();
    }
    // An index of other values than it is meant to have.
    Database(library, Database::Access::readWrite)
        .execute(
            "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = 'CREATE INDEX "
            "storiesByStamp ON stories (titleKey)' WHERE name = 'storiesByStamp'");
    LibraryStatus status(library, harness_.desk.clock());
    ASSERT_TRUE(until([&] { return status.progress().isEmpty(); }));
    status.check();
    ASSERT_TRUE(until([&] { return !status.repair().isEmpty(); }));
    const auto rows = libraryRows(status, std::nullopt, harness_.desk.clock()());
    const auto row = std::ranges::find(rows, "Repair", &SettingRow::title);
    ASSERT_NE(row, rows.end());
    EXPECT_TRUE(row->meaning.startsWith("A repair keeps: 1 stor")) << row->meaning.toStdString();

    // Without a desk a window of its own asks, and is answered with the pointer.
    LibraryWish wish;
    const auto paths = Paths::forUser(folder.path());
    for (const QString answer : {"Cancel", "Repair"}) {
        wish.work = LibraryWork{.kind = LibraryWork::Kind::repair};
        QTimer clicking;
        QObject::connect(&clicking, &QTimer::timeout, [&] { clickInNotice(answer); });
        clicking.start(20);
        EXPECT_TRUE(fulfil(wish, paths, harness_.desk.clock()));
        const bool isRepaired = answer == "Repair";
        EXPECT_EQ(wish.outcome.startsWith("The library was repaired"), isRepaired)
            << wish.outcome.toStdString();
        EXPECT_EQ(checkLibrary(library, CheckDepth::full).state,
                  isRepaired ? LibraryState::sound : LibraryState::damaged);
    }
}

}  // namespace
}  // namespace app
