#include <gtest/gtest.h>

#include <QFile>

#include "Tarnwick_Brell/CommandLine/PanelText.h"
#include "tests/support/app/TestTrackers.h"
#include "tests/support/EventLoop.h"
#include "tests/support/models/TestPanels.h"

// Written by the build; naming it keeps the linker from leaving out the module's files.
extern void qml_register_types_TarnwickBrell_Panels();

namespace app {
namespace {

using namespace test;
using kit::PanelKind;

/// The list of a panel's model, and the role that names its rows; without a list the property that
/// names the content.
struct Rows {
    PanelKind kind;
    const char* list;
    const char* name;
};

constexpr Rows kRows[] = {
    {PanelKind::stream, "stories", "title"},    {PanelKind::topStories, "rows", "title"},
    {PanelKind::claims, "rows", "title"},       {PanelKind::software, "rows", "platform"},
    {PanelKind::status, "problems", "service"}, {PanelKind::coverage, "rows", "outlet"},
    {PanelKind::scoops, "rows", "title"},       {PanelKind::apple, "stories", "title"},
    {PanelKind::releases, "rows", "build"},     {PanelKind::brief, "rows", "sentence"},
    {PanelKind::countdown, "rows", "title"},    {PanelKind::stock, nullptr, "price"},
    {PanelKind::suppliers, "rows", "symbol"},   {PanelKind::backend, "rows", "title"},
    {PanelKind::records, "rows", "title"},
};

/// The window and the command line over one library.
class PanelFacesTest : public ::testing::Test {
protected:
    PanelFacesTest() {
        [[maybe_unused]] void (*volatile files)() = &qml_register_types_TarnwickBrell_Panels;
        const char* headset = "Apple's Quillmark headset appears in blue factory photos";
        desk_.tell("Harbour", "10:00", headset, kit::Sourcing::rumor);
        desk_.tell("Lantern", "10:14", headset);
        desk_.tell("Meridian", "10:30", headset, kit::Sourcing::report);
        const char* ruling = "Orchard board says it will appeal the payments ruling in Utrecht";
        desk_.tell("Meridian", "11:03", ruling, kit::Sourcing::rumor);
        desk_.tell("Harbour", "11:10", ruling);
        desk_.tell({.id = "apple-1",
                    .link = "https://apple.example/1",
                    .title = "A new orchard opens",
                    .publishedAt = desk_.at("09:00"),
                    .sourceID = "apple",
                    .sourceName = "Apple",
                    .isAppleSource = true});
        desk_.serveTrackers(statusAnswer({"Mail!", "Maps", "Pay!"}).body,
                            releasesAnswer("24A1", "24B2").body);
        serve("desk.example", "/wp-json/tb-wire/v1/events",
              eventsAnswer({"Lamp show", "Harbour fair"}));
        serve("desk.example", "/wp-json/tb-wire/v1/quotes", boardAnswer({"TIDE", "REEF"}));
        serve("desk.example", "/wp-json/tb-wire/v1/quote?range=1m&symbol=AAPL",
              quoteAnswer("AAPL", "1m", 98));
        serve("gdmf.apple.com", "/v2/pmv", {.body = updatesBody("27")});
        const std::string phone = "/v4/device/iPhone18,3?type=ipsw";
        serve("api.ipsw.me", phone, {.body = signingBody("26+ 25")});
        desk_.open();
        refresh();
        // What is new in the second answers is a change.
        serve("gdmf.apple.com", "/v2/pmv", {.body = updatesBody("28 27")});
        serve("api.ipsw.me", phone, {.body = signingBody("27+ 26+ 25")});
        refresh();
    }

    void serve(const std::string& host, const std::string& path,
               const pressroom::Response& answer) {
        desk_.desk.http.script.on(host, path, {answer});
    }

    void refresh() {
        desk_.trackers->refreshAll();
        ::test::until([&] {
            return std::ranges::none_of(
                kTrackers, [&](auto tracker) { return desk_.trackers->isRefreshing(tracker); });
        });
    }

    QStringList windowRows(PanelModel& model, const Rows& rows) {
        if (!rows.list) return {model.property(rows.name).toString()};
        auto* list = model.property(rows.list).value<QAbstractListModel*>();
        const auto role = list->roleNames().key(rows.name);
        QStringList names;
        for (int i = 0; i < list->rowCount(); ++i) {
            // Both write times in their own way.
            const auto name = list->index(i, 0).data(role).toString();
            names << name.section(QStringLiteral(" since "), 0, 0);
        }
        return names;
    }

    std::vector<std::string> consoleLines(PanelKind kind) {
        cli::GlobalOptions options;
        options.dataDir = desk_.desk.folder.path();
        cli::Session session(options);
        cli::PanelHoldings holdings(session, desk_.desk.now());
        return panelLines(holdings, {.kind = kind, .frame = {0, 0, 12, 24}}, {});
    }

    TestPanels desk_;
};

TEST_F(PanelFacesTest, EveryKindHasContentInBoth) {
    for (const auto& row : kit::enumTable<PanelKind>) {
        SCOPED_TRACE(row.raw);
        const auto model = makePanelModel(desk_.stores(), {.kind = row.value}, {});
        if (model->file().isEmpty()) {
            EXPECT_EQ(model->state(), PanelModel::Empty) << "it has nothing to draw";
            EXPECT_FALSE(model->message().isEmpty());
        } else {
            EXPECT_TRUE(QFile::exists(":/qt/qml/TarnwickBrell/Panels/" + model->file()))
                << model->file().toStdString();
        }
        EXPECT_FALSE(consoleLines(row.value).empty());
    }
}

TEST_F(PanelFacesTest, BothShowTheSameRowsInTheSameOrder) {
    for (const auto& rows : kRows) {
        SCOPED_TRACE(rawValue(rows.kind));
        const auto model = desk_.panel(rows.kind);
        const auto names = windowRows(*model, rows);
        EXPECT_FALSE(names.isEmpty());
        const auto lines = consoleLines(rows.kind);
        auto line = lines.begin();
        for (const auto& name : names) {
            line = std::find_if(line, lines.end(), [&](const std::string& text) {
                return text.find(name.toStdString()) != std::string::npos;
            });
            ASSERT_NE(line, lines.end()) << name.toStdString() << " is missing or out of order";
            ++line;
        }
    }
}

}  // namespace
}  // namespace app
