#include <QCoreApplication>
#include <QLocale>
#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Panels/CoveragePanelModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryActions.h"
#include "Tarnwick_Brell/Models/Window/RefreshStatus.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Window/PseudoTranslator.h"
#include "Tarnwick_Brell/Window/Translations.h"

namespace app {
namespace {

using kit::StoryMention;

// The catalogue's contexts must be those under which the classes look texts up.
TEST(Translations, OneIsSingularAndMoreArePluralAlsoInALanguageWithoutACatalogue) {
    int count = 1;
    char name[] = "test";
    char* words[] = {name, nullptr};
    QCoreApplication application(count, words);
    QLocale::setDefault(QLocale(QLocale::Swahili, QLocale::Kenya));
    installTranslations();

    EXPECT_EQ(StoryListController::tr("%n new stories", nullptr, 1), QStringLiteral("1 new story"));
    EXPECT_EQ(StoryListController::tr("%n new stories", nullptr, 0),
              QStringLiteral("0 new stories"));
    EXPECT_EQ(StoryActions::tr("%n stories marked as read.", nullptr, 21),
              QStringLiteral("21 stories marked as read."));
    EXPECT_EQ(CoveragePanelModel::tr("%n stories", nullptr, 1), QStringLiteral("1 story"));
    EXPECT_EQ(RefreshStatus::tr("Refreshing, %1 of %n sources", nullptr, 1).arg(0),
              QStringLiteral("Refreshing, 0 of 1 source"));

    const struct {
        PseudoTranslator::Language language;
        const char* source;
        int count;
        QString shown;
    } cases[] = {
        {PseudoTranslator::Language::accented, "Save %1", -1, QStringLiteral("[Šávé %1~~~]")},
        {PseudoTranslator::Language::mirrored, "Save", -1,
         QChar(0x202E) + QStringLiteral("[Save]") + QChar(0x202C)},
        {PseudoTranslator::Language::mirrored, "QT_LAYOUT_DIRECTION", -1, QStringLiteral("RTL")},
        {PseudoTranslator::Language::accented, "QT_LAYOUT_DIRECTION", -1, QStringLiteral("LTR")},
    };
    const QTranslator english;
    for (const auto& each : cases) {
        const PseudoTranslator pseudo(each.language, english, nullptr);
        EXPECT_EQ(pseudo.translate("", each.source, nullptr, each.count), each.shown)
            << each.source;
    }

    const std::vector<StoryMention> outlets(4, StoryMention{});
    EXPECT_TRUE(sourcesText(outlets, kit::Instant()).endsWith(QStringLiteral("2 more")));
}

}  // namespace
}  // namespace app
