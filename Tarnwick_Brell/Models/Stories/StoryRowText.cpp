#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"

#include <chrono>

#include <QCoreApplication>
#include <QStringList>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct StoryRow {
    Q_DECLARE_TR_FUNCTIONS(StoryRow)
};

/// Labels come from the tables of the core library, which knows no translation.
QString translated(std::string_view label) { return StoryRow::tr(std::string(label).c_str()); }

}  // namespace

QString kindText(kit::StoryKind kind) {
    return kind == kit::StoryKind::coverage ? QString() : translated(label(kind));
}

QString sourcingText(kit::Sourcing sourcing) {
    return sourcing == kit::Sourcing::unlabeled ? QString() : translated(label(sourcing));
}

QString destinationText(const PackedStory& story) {
    const auto name = titleText(story.destinationName());
    const bool isSame = name.compare(titleText(story.sourceName()), Qt::CaseInsensitive) == 0;
    return isSame ? QString() : name;
}

QString delayText(kit::Instant::duration delay) {
    return delay < std::chrono::minutes(1) ? StoryRow::tr("same time") : u'+' + spanText(delay);
}

QString spokenText(const PackedStory& story, kit::Instant now) {
    QStringList parts;
    if (!story.isRead()) parts << StoryRow::tr("Unread");
    if (story.isSaved()) parts << StoryRow::tr("Saved");
    parts << titleText(story.title(), kTitleCharacters) << titleText(story.sourceName());
    for (const auto& part : {destinationText(story), kindText(story.kind()),
                             sourcingText(story.sourcing()), ageText(story.publishedAt(), now)}) {
        if (!part.isEmpty()) parts << part;
    }
    return parts.join(QStringLiteral(", "));
}

}  // namespace app
