#include "tools/pictures/SubjectViews.h"

#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Models/Pages/RecordsPageModel.h"
#include "Tarnwick_Brell/Models/Sheets/AlertRuleSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/SettingsSheetModel.h"

namespace pictures {

using namespace app;

namespace {

void openRecords(WindowModel& model, RecordsPageModel::Tab tab) {
    model.open(QStringLiteral("tracker:records"));
    auto& page = dynamic_cast<RecordsPageModel&>(*model.page());
    waitUntil("the records", [&] { return page.state() != PanelModel::Loading; });
    page.setTab(tab);
}

AlertRuleSheetModel& openRule(WindowModel& model) {
    model.open(QStringLiteral("wire:all"));
    model.showSheet(QStringLiteral("alert-rule:"));
    return dynamic_cast<AlertRuleSheetModel&>(*model.sheet());
}

void waitForRehearsal(AlertRuleSheetModel& sheet) {
    waitUntil("the rehearsal", [&] { return sheet.rehearsal()->isReady(); });
}

}  // namespace

std::vector<View> subjectViews(NewsDesk& news) {
    return {
        {"top-stories",
         [](WindowModel& model) {
             model.open(QStringLiteral("wire:top"));
             model.setClustered(true);
             waitUntil("the top stories",
                       [&] { return model.page()->state() != PanelModel::Loading; });
         }},
        {"top-stories-list",
         [](WindowModel& model) {
             model.open(QStringLiteral("wire:top"));
             model.setClustered(false);
             waitUntil("the top stories",
                       [&] { return model.page()->state() != PanelModel::Loading; });
         }},
        {"timeline",
         [](WindowModel& model) {
             model.open(QStringLiteral("page:timeline/words/iOS, MacBook, App Store"));
             waitUntil("the timeline",
                       [&] { return model.page()->state() != PanelModel::Loading; });
         }},
        {"timeline-news",
         [&news](WindowModel& model) {
             model.open(QStringLiteral("wire:all"));
             chooseStory(model, news);
             model.actions()->trigger(DeskAction::ShowTimeline);
         }},
        {"timeline-empty", [](WindowModel& model) { model.open(QStringLiteral("page:timeline")); }},
        {"activity",
         [](WindowModel& model) {
             model.open(QStringLiteral("page:activity"));
             waitUntil("the log", [&] { return model.page()->state() != PanelModel::Loading; });
         }},
        {"alert-rule",
         [](WindowModel& model) {
             auto& sheet = openRule(model);
             sheet.setName(QStringLiteral("App Store and fees"));
             sheet.addWords(QStringLiteral("app store, fees, iPad"));
             sheet.addExcludedWords(QStringLiteral("podcast"));
             sheet.setPause(2);
             waitForRehearsal(sheet);
         }},
        {"alert-signals",
         [](WindowModel& model) {
             auto& sheet = openRule(model);
             sheet.setName(QStringLiteral("Notable changes"));
             sheet.setTrigger(AlertRuleSheetModel::Signals);
             sheet.setLeast(1);
             waitForRehearsal(sheet);
         }},
        {"alert-price",
         [](WindowModel& model) {
             auto& sheet = openRule(model);
             sheet.setName(QStringLiteral("Apple above 300"));
             sheet.setTrigger(AlertRuleSheetModel::Price);
             sheet.setFigure(QStringLiteral("300"));
             waitUntil("the answer", [&] { return !sheet.rehearsal()->problem().isEmpty(); });
         }},
        {"settings-alerts",
         [](WindowModel& model) {
             openRule(model).addWords(QStringLiteral("app store"));
             dynamic_cast<AlertRuleSheetModel&>(*model.sheet())
                 .setName(QStringLiteral("App Store"));
             dynamic_cast<AlertRuleSheetModel&>(*model.sheet()).save();
             model.showSheet(QStringLiteral("settings"));
             dynamic_cast<SettingsSheetModel&>(*model.sheet()).setSection(3);
         }},
        {"alert-history",
         [](WindowModel& model) { model.showSheet(QStringLiteral("alert-history")); }},
        {"pages", [](WindowModel& model) { model.open(QStringLiteral("tracker:pages")); }},
        {"filings", [](WindowModel& model) { openRecords(model, RecordsPageModel::Filings); }},
        {"insiders", [](WindowModel& model) { openRecords(model, RecordsPageModel::Insiders); }},
        {"court", [](WindowModel& model) { openRecords(model, RecordsPageModel::Court); }},
        {"press", [](WindowModel& model) { openRecords(model, RecordsPageModel::Press); }},
        {"back-end",
         [](WindowModel& model) {
             model.open(QStringLiteral("tracker:backend"));
             waitUntil("the findings",
                       [&] { return model.page()->state() != PanelModel::Loading; });
         }},
        {"correct",
         [&news](WindowModel& model) {
             model.open(QStringLiteral("wire:all"));
             chooseStory(model, news);
             model.actions()->trigger(DeskAction::CorrectStory);
         }},
        {"corrections",
         [&news](WindowModel& model) {
             if (news.corrections().all().empty()) {
                 model.open(QStringLiteral("wire:all"));
                 chooseStory(model, news);
                 const auto id = model.selectedStory()->reader()->storyID().toStdString();
                 news.corrections().add({.kind = kit::Correction::Kind::label,
                                         .stories = {id},
                                         .instead = {{.sourcing = kit::Sourcing::confirmed}}});
                 waitUntil("the correction", [&] { return !news.corrections().all().empty(); });
             }
             model.open(QStringLiteral("page:corrections"));
         }},
        {"coverage",
         [&news](WindowModel& model) {
             model.open(QStringLiteral("wire:all"));
             chooseStory(model, news);
             model.actions()->trigger(DeskAction::FindCoverage);
             const auto* coverage = model.selectedStory()->reader()->coverage();
             waitUntil("the archive", [&] { return coverage->state() != CoverageModel::Running; });
         }},
    };
}

}  // namespace pictures
