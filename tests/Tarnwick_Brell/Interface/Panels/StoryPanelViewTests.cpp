#include <gtest/gtest.h>

#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include "Tarnwick_Brell/Interface/Controls/InstallControls.h"
#include "Tarnwick_Brell/Models/Panels/QueryPanelModel.h"
#include "tests/support/models/TestPanels.h"
#include "tests/support/EventLoop.h"

// Written by the build; naming them keeps the linker from leaving out the modules' types.
extern void qml_register_types_TarnwickBrell_Models();
extern void qml_register_types_TarnwickBrell_Panels();

namespace app {
namespace {

using namespace std::chrono_literals;
using namespace test;
using kit::PanelKind;
using kit::Sourcing;

constexpr const char* kPage = R"(
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

Rectangle {
    id: page
    required property list<PanelModel> contents
    required property bool dark
    color: Theme.canvas
    Binding { target: Theme; property: "dark"; value: page.dark }
    Grid {
        x: Theme.gridPadding; y: Theme.gridPadding
        columns: 3; spacing: Theme.gridGap
        Repeater {
            model: page.contents
            PanelView {
                required property int index
                objectName: "panel" + index
                width: 400; height: 260
                content: page.contents[index]
                title: "Panel"
                symbol: "flame"
            }
        }
    }
}
)";

class StoryPanelViewTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { QGuiApplication::setFont(QFont(QStringLiteral("Inter"))); }

    StoryPanelViewTest() {
        [[maybe_unused]] void (*volatile models)() = &qml_register_types_TarnwickBrell_Models;
        [[maybe_unused]] void (*volatile panels)() = &qml_register_types_TarnwickBrell_Panels;
        const char* headset = "Apple's Quillmark headset appears in blue factory photos";
        harness_.tell("Harbour", "10:00", headset, Sourcing::rumor);
        harness_.tell("Lantern", "10:14", headset);
        harness_.tell("Meridian", "10:30", headset, Sourcing::report);
        const char* ruling = "Orchard board says it will appeal the payments ruling in Utrecht";
        harness_.tell("Meridian", "11:03", ruling, Sourcing::onRecord);
        harness_.tell("Harbour", "11:10", ruling);
        harness_.tell("Lantern", "11:40",
                      "A calm week for keyboards and for everybody who types on them all day long");
        harness_.open();
        harness_.news->setRead({std::string(harness_.news->stories()[0].id())}, true);
        for (const auto kind : {PanelKind::stream, PanelKind::brief, PanelKind::topStories,
                                PanelKind::claims, PanelKind::coverage, PanelKind::scoops}) {
            contents_.push_back(harness_.panel(kind));
        }
        contents_.push_back(harness_.panel(PanelKind::stream, {.anyTerms = {"nonesuch"}}));
        contents_.push_back(makePanelModel(harness_.stores(), {.kind = PanelKind::topStories}, {}));
    }

    void show(bool dark) {
        QList<QObject*> list;
        for (const auto& content : contents_) list << content.get();
        view_ = std::make_unique<QQuickView>();
        installControls(*view_->engine());
        QObject::connect(view_->engine(), &QQmlEngine::warnings, [this](const auto& warnings) {
            for (const auto& warning : warnings) warnings_ << warning.toString();
        });
        auto* component = new QQmlComponent(view_->engine(), view_.get());
        component->setData(kPage, QUrl(QStringLiteral("qrc:/page.qml")));
        ASSERT_TRUE(component->isReady()) << component->errorString().toStdString();
        auto* page = component->createWithInitialProperties(
            {{"contents", QVariant::fromValue(list)}, {"dark", dark}});
        view_->setResizeMode(QQuickView::SizeRootObjectToView);
        view_->setContent({}, component, page);
        view_->resize(1264, 850);
        view_->show();
        ::test::runFor(200ms);
    }

    /// What a repeater makes are items below each other, not objects.
    template <class Wanted>
    static QQuickItem* below(QQuickItem* item, const Wanted& isWanted) {
        if (isWanted(item)) return item;
        for (auto* child : item->childItems()) {
            if (auto* found = below(child, isWanted)) return found;
        }
        return nullptr;
    }

    QQuickItem* list(int index) {
        const auto name = QStringLiteral("panel%1").arg(index);
        auto* panel = below(view_->rootObject(),
                            [&](QQuickItem* item) { return item->objectName() == name; });
        return below(panel, [](QQuickItem* item) { return item->inherits("QQuickListView"); });
    }

    TestPanels harness_;
    std::vector<std::unique_ptr<PanelModel>> contents_;
    std::unique_ptr<QQuickView> view_;
    QStringList warnings_;
};

TEST_F(StoryPanelViewTest, EveryPanelIsDrawnInLightAndDarkWithoutAWarning) {
    for (const bool dark : {false, true}) {
        ASSERT_NO_FATAL_FAILURE(show(dark));
        const auto picture = view_->grabWindow();
        if (const auto folder = qEnvironmentVariable("BRELL_PICTURES"); !folder.isEmpty()) {
            picture.save(folder + (dark ? "/story-panels-dark.png" : "/story-panels-light.png"));
        }
        for (int i = 0; i < 6; ++i) {
            ASSERT_NE(list(i), nullptr) << i;
            EXPECT_GT(list(i)->property("count").toInt(), 0) << i;
        }
        EXPECT_FALSE(list(6)->isVisible()) << "an empty panel only says that it is empty";
    }
    EXPECT_EQ(warnings_.join('\n').toStdString(), "");
}

TEST_F(StoryPanelViewTest, ArrowsMoveThroughAPanelAndEnterOpensItsStory) {
    ASSERT_NO_FATAL_FAILURE(show(false));
    QStringList opened;
    QObject::connect(contents_[2].get(), &PanelModel::storyWanted,
                     [&](const QString& id) { opened << id; });
    list(2)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(view_.get(), Qt::Key_Down);
    QTest::keyClick(view_.get(), Qt::Key_Return);
    ASSERT_EQ(opened.size(), 1);
    const auto* story = harness_.news->stories().find(opened[0].toStdString());
    ASSERT_NE(story, nullptr);
    EXPECT_EQ(story->sourceName(), "Harbour") << "what is on the record comes before a rumor";
}

}  // namespace
}  // namespace app
