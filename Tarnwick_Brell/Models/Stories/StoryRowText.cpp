#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"

#include <QCoreApplication>
#include <QStringList>

#include "Tarnwick_Brell/Text/ShownText.h"
#include "Tarnwick_Brell/Text/TimeText.h"

namespace desk {

namespace {

QString tr(std::string_view text) {
    return QCoreApplication::translate("StoryRow", std::string(text).c_str());
}

}  // namespace

QString kindText(newsroom::StoryKind kind) {
    return kind == newsroom::StoryKind::coverage ? QString() : tr(label(kind));
}

QString sourcingText(newsroom::Sourcing sourcing) {
    return sourcing == newsroom::Sourcing::unlabeled ? QString() : tr(label(sourcing));
}

QString destinationText(const PackedStory& story) {
    const auto name = titleText(story.destinationName());
    const bool isSame = name.compare(titleText(story.sourceName()), Qt::CaseInsensitive) == 0;
    return isSame ? QString() : name;
}

QString spokenText(const PackedStory& story, newsroom::Instant now) {
    QStringList parts;
    if (!story.isRead()) parts << tr("Unread");
    if (story.isSaved()) parts << tr("Saved");
    parts << titleText(story.title(), kTitleCharacters) << titleText(story.sourceName());
    for (const auto& part : {destinationText(story), kindText(story.kind()),
                             sourcingText(story.sourcing()), ageText(story.publishedAt(), now)}) {
        if (!part.isEmpty()) parts << part;
    }
    return parts.join(QStringLiteral(", "));
}

}  // namespace desk
