#include "Tarnwick_Brell/Models/Settings/LibraryText.h"

#include <QCoreApplication>
#include <QStringList>

namespace app {

namespace {

struct LibraryText {
    Q_DECLARE_TR_FUNCTIONS(LibraryText)
};

}  // namespace

QString repairText(const RepairPreview& preview) {
    const auto count = [](std::size_t number) { return static_cast<int>(number); };
    const QStringList kept{
        LibraryText::tr("%n stories", nullptr, count(preview.stories)),
        LibraryText::tr("%n saved", nullptr, count(preview.saved)),
        LibraryText::tr("%n newsrooms", nullptr, count(preview.newsrooms)),
        LibraryText::tr("%n beats", nullptr, count(preview.beats)),
        LibraryText::tr("%n sources of your own", nullptr, count(preview.ownSources))};
    return LibraryText::tr("A repair keeps: %1. The damaged library stays beside the new one.")
        .arg(kept.join(QStringLiteral(", ")));
}

}  // namespace app
