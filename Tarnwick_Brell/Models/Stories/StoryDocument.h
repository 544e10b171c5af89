#pragma once

#include <vector>

#include <QByteArray>
#include <QPagedPaintDevice>
#include <QLocale>
#include <QPageSize>
#include <QString>
#include <QStringList>

#include "Tarnwick_Brell/Models/Stories/StoryDetails.h"

namespace app {

/// A story as it is printed and saved. All texts have been cleaned for the screen; times have
/// their year and zone, since paper is read later.
struct StoryDocument {
    QString title{};
    QString source{};
    QString destination{};
    QString author{};
    QString published{};
    QString link{};        ///< empty when it leads nowhere that may be opened
    QStringList labels{};  ///< each with its reason, as a sentence
    QString text{};        ///< the excerpt, in lines
    std::vector<WordingRow> wordings{};
    std::vector<CreditRow> credits{};
    QString timelineTitle{};  ///< empty when nobody else runs the story
    QString timelineFact{};
    std::vector<TimelineRow> timeline{};
    QString made{};  ///< when the desk knew all this
};

/// For Qt's rich text. Nothing of the story is read as markup.
QString htmlOf(const StoryDocument& document);

/// What the people of that country put into their printers.
QPageSize paperOf(const QLocale& locale);

void print(const StoryDocument& document, QPagedPaintDevice& device);

/// With text that can be selected and links that can be followed.
QByteArray pdfOf(const StoryDocument& document, const QPageSize& paper);

}  // namespace app
