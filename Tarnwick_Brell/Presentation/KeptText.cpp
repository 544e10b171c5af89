#include "Tarnwick_Brell/Presentation/KeptText.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct KeptText {
    Q_DECLARE_TR_FUNCTIONS(KeptText)
};

}  // namespace

QString quoteText(const kit::Clip& clip) {
    return KeptText::tr("“%1”").arg(titleText(clip.quote, kExcerptCharacters));
}

QString clipSourceText(const kit::Clip& clip, kit::Instant now, const Style& style) {
    auto source = titleText(clip.sourceName);
    if (clip.author) source = KeptText::tr("%1, %2").arg(source, titleText(*clip.author));
    if (clip.publishedAt)
        source = KeptText::tr("%1, %2").arg(source, shortDayText(*clip.publishedAt, now, style));
    return KeptText::tr("%1: %2").arg(source, titleText(clip.title, kTitleCharacters));
}

}  // namespace app
