#include "Tarnwick_Brell/Models/Stories/StoryCitation.h"

#include <QCoreApplication>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct Citation {
    Q_DECLARE_TR_FUNCTIONS(Citation)
};

constexpr int kCitedTitleCharacters = 1000;

QString citedTitle(const kit::Story& story) {
    return titleText(story.title, kCitedTitleCharacters);
}

/// Always with the year: a citation is read later.
QString citedDate(const kit::Story& story) {
    return shortDayText(story.publishedAt, kit::Instant{});
}

/// Brackets, backslashes and signs of emphasis in a headline are text.
QString markdownText(const QString& text) {
    QString escaped;
    for (const auto letter : text) {
        if (QStringLiteral("\\[]*_`<>").contains(letter)) escaped += u'\\';
        escaped += letter;
    }
    return escaped;
}

/// A parenthesis would end the link.
QString markdownLink(QString link) {
    return link.replace(u'(', QStringLiteral("%28")).replace(u')', QStringLiteral("%29"));
}

}  // namespace

QString browserLink(const kit::Story& story) {
    return openableLink(story.articleLink.value_or(story.link));
}

QString shownLink(const kit::Story& story) {
    return plainText(kit::maskedLogins(browserLink(story).toStdString()));
}

QString citationOf(const kit::Story& story) {
    return Citation::tr("“%1”, %2, %3, %4")
        .arg(citedTitle(story), titleText(kit::outletOf(story)), citedDate(story),
             shownLink(story));
}

QString markdownCitationOf(const kit::Story& story) {
    return Citation::tr("“[%1](%2)”, %3, %4")
        .arg(markdownText(citedTitle(story)), markdownLink(shownLink(story)),
             markdownText(titleText(kit::outletOf(story))), citedDate(story));
}

QVariantMap dragDataOf(const kit::Story& story) {
    QVariantMap data{{QStringLiteral("text/plain"), markdownCitationOf(story)},
                     {QString::fromLatin1(kStoryMimeType), plainText(story.id)}};
    if (const auto link = shownLink(story); !link.isEmpty())
        data.insert(QStringLiteral("text/uri-list"), link);
    return data;
}

}  // namespace app
