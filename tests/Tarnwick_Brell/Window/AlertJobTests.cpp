#include <gtest/gtest.h>

#include "NewsroomKit/Alerts/AlertEvent.h"
#include "NewsroomKit/Signals/SignalEvent.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Models/Pages/ActivityPageModel.h"
#include "Tarnwick_Brell/Models/Sheets/AlertHistorySheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/AlertRuleSheetModel.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// A rule that was told of an outage and has noted a story quietly.
class AlertJobTest : public WindowJobTest {
protected:
    static constexpr const char* kRule = "6f0e1d2c-3b4a-4958-8776-655443322110";

    void SetUp() override {
        LocalStore store(harness_.desk.library(), Database::Access::readWrite);
        kit::AlertRule rule{.id = kRule, .name = "Tides"};
        rule.trigger = kit::SignalsTrigger{.words = {"Maps"}};
        store.alertRules().put(
            {.id = kRule, .record = kit::json::serialize(kit::encode(rule)), .rank = "a"});
        auto signal = kit::signalOf(kit::SignalEvent::serviceOutage);
        signal.id = signal.title = "Maps has an outage";
        signal.seenAt = harness_.at("10:05");
        store.signalLog().add({&signal, 1});
        auto transaction = store.transaction();
        store.alerts().add({.rule = kRule,
                            .ruleName = "Tides",
                            .event = kit::alertKey(signal),
                            .title = signal.title,
                            .words = {"maps"},
                            .matchedAt = harness_.at("10:05"),
                            .toldAt = harness_.at("10:06"),
                            .outcome = AlertOutcome::notified});
        store.alerts().add({.rule = "gone",
                            .ruleName = "Lanterns",
                            .event = "story|1",
                            .title = "Glass prices rise",
                            .link = "https://a.example/glass",
                            .matchedAt = harness_.at("11:00"),
                            .toldAt = harness_.at("11:00"),
                            .outcome = AlertOutcome::quiet});
        transaction.commit();
        openWindow();
        ASSERT_TRUE(until([&] { return harness_.alerts->log().newest.size() == 2; }));
    }

    template <class Sheet>
    Sheet& sheet() {
        return dynamic_cast<Sheet&>(*model_->sheet());
    }
    QStringList history(const char* role) {
        return column(*sheet<AlertHistorySheetModel>().rows(), role);
    }
    const AlertRuleRecords& rules() { return harness_.alerts->rules(); }
};

TEST_F(AlertJobTest, WhatWasToldIsListedWithItsRuleAndWhatWasNotIsCountedUntilItIsLookedAt) {
    ASSERT_TRUE(until([&] { return named("Activity, 2 new") != nullptr; }))
        << "a line of the log and a quiet match";
    model_->open(QStringLiteral("page:activity"));
    ASSERT_TRUE(until([&] { return named("Activity, 1 new") != nullptr; }));
    auto& page = dynamic_cast<ActivityPageModel&>(*model_->page());
    EXPECT_EQ(column(*page.rows(), "told"), QStringList("Told 10:06"));
    EXPECT_EQ(page.why()->text(), "Told by “Tides”, 10:06, for “maps”.");
    click(QStringLiteral("1 more by your rules"));
    ASSERT_NE(model_->sheet(), nullptr);
    EXPECT_EQ(history("title"), QStringList({"Glass prices rise", "Maps has an outage"}));
    EXPECT_EQ(history("outcome"), QStringList({"Quiet", "Told 10:06"}));
    EXPECT_EQ(history("heading"), QStringList({"Today", ""}));
    EXPECT_EQ(history("reason"), QStringList({"Lanterns", "Tides · for “maps”"}));
    EXPECT_EQ(page.untoldText(), "");
    QString opened;
    QObject::connect(model_.get(), &WindowModel::linkWanted,
                     [&](const QString& link) { opened = link; });
    press(Qt::Key_Return);
    EXPECT_EQ(opened, "https://a.example/glass");
    sheet<AlertHistorySheetModel>().editRule(0);
    EXPECT_EQ(history("title").size(), 2) << "the rule is gone";
    click(QStringLiteral("Edit rule"));
    ASSERT_TRUE(until([&] { return dynamic_cast<AlertRuleSheetModel*>(model_->sheet()); }));
    EXPECT_EQ(sheet<AlertRuleSheetModel>().name(), "Tides");
}

TEST_F(AlertJobTest, ARuleIsMadeChangedAndRemovedInStepsThatAreUndone) {
    model_->showSheet(QStringLiteral("alert-from-words:iPhone18,3"));
    auto& made = sheet<AlertRuleSheetModel>();
    EXPECT_EQ(made.words(), QStringList("iPhone18,3"));
    made.setName(QStringLiteral("Storms"));
    made.setLeast(2);
    made.save();
    ASSERT_EQ(rules().entries().size(), 2U);
    EXPECT_EQ(rules().entries()[1].name, "Storms");
    model_->showSheet(QStringLiteral("alert-rule:") + kRule);
    sheet<AlertRuleSheetModel>().setIsOn(false);
    sheet<AlertRuleSheetModel>().save();
    EXPECT_FALSE(rules().find(kRule)->value->on);
    model_->showSheet(QStringLiteral("alert-rule:") + kRule);
    sheet<AlertRuleSheetModel>().remove();
    EXPECT_EQ(rules().find(kRule), nullptr);
    EXPECT_TRUE(undo_.undo());
    EXPECT_FALSE(rules().find(kRule)->value->on);
    EXPECT_TRUE(undo_.undo());
    EXPECT_TRUE(rules().find(kRule)->value->on);
    EXPECT_TRUE(undo_.undo());
    EXPECT_EQ(rules().entries().size(), 1U);
}

TEST_F(AlertJobTest, ARowsMenuMakesARuleOnWhatTheRowIsAbout) {
    const auto choose = [&](const QVariantMap& facts) {
        auto* menu = model_->rowMenu();
        EXPECT_TRUE(menu->show(facts));
        const auto titles = column(*menu->rows(), "title");
        menu->run(static_cast<int>(titles.indexOf(QStringLiteral("Tell me about this"))));
    };
    choose({{"subject", "Harbour Audio, Inc."}, {"spokenText", "Harbour Audio"}});
    EXPECT_EQ(sheet<AlertRuleSheetModel>().words(), QStringList("Harbour Audio, Inc."));
    choose({{"quote", "AAPL"}, {"subject", "Apple"}});
    EXPECT_EQ(sheet<AlertRuleSheetModel>().trigger(), AlertRuleSheetModel::Price);
    EXPECT_EQ(sheet<AlertRuleSheetModel>().symbol(), "AAPL");
    EXPECT_TRUE(model_->rowMenu()->show({{"spokenText", "A heading"}}));
    EXPECT_FALSE(column(*model_->rowMenu()->rows(), "title").contains("Tell me about this"));
}

}  // namespace
}  // namespace app
