#include "Tarnwick_Brell/Models/Pages/TimelineSubject.h"

#include <QStringList>

#include "NewsroomKit/Panels/ProposedTerms.h"
#include "NewsroomKit/Queries/TermList.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

const QString kTimelinePage = QStringLiteral("timeline");
const QString kWordsOf = QStringLiteral("timeline/words/");
const QString kBeatOf = QStringLiteral("timeline/beat/");
const QString kNewsOf = QStringLiteral("timeline/news/");

QString joined(const std::vector<std::string>& words) {
    QStringList list;
    for (const auto& word : words) list << plainText(word);
    return list.join(QStringLiteral(", "));
}

}  // namespace

TimelineSubject TimelineSubject::ofWords(const QString& typed) {
    auto words = kit::separatedTerms(typed.toStdString());
    return {words.empty() ? Kind::none : Kind::words, std::move(words), {}};
}

bool TimelineSubject::isPlace(const Destination& place) {
    return place.kind == Destination::Kind::page &&
           (place.id == kTimelinePage || of(place).kind != Kind::none);
}

TimelineSubject TimelineSubject::of(const Destination& place) {
    const auto after = [&](const QString& start) { return place.id.mid(start.size()); };
    if (place.id.startsWith(kWordsOf)) return ofWords(after(kWordsOf));
    if (place.id.startsWith(kBeatOf)) return ofBeat(after(kBeatOf).toStdString());
    if (place.id.startsWith(kNewsOf)) return ofNews(after(kNewsOf).toStdString());
    return {};
}

Destination TimelineSubject::place() const {
    QString page = kTimelinePage;
    switch (kind) {
        case Kind::none: break;
        case Kind::words: page = kWordsOf + joined(words); break;
        case Kind::beat: page = kBeatOf + plainText(id); break;
        case Kind::news: page = kNewsOf + plainText(id); break;
    }
    return {Destination::Kind::page, page};
}

kit::StoryQuery TimelineSubject::query(const DeskStores& stores) const {
    switch (kind) {
        case Kind::none: return {};
        case Kind::words: return {.anyTerms = words};
        case Kind::beat: {
            const auto* entry = stores.newsrooms.beats().find(id);
            return entry && entry->value ? entry->value->query : kit::StoryQuery();
        }
        case Kind::news: {
            const auto* story = stores.news.stories().find(id);
            return {.anyTerms =
                        story ? kit::proposedTerms(story->title()) : std::vector<std::string>()};
        }
    }
    return {};
}

QString TimelineSubject::name(const DeskStores& stores) const {
    switch (kind) {
        case Kind::none: return {};
        case Kind::words: return titleText(joined(words).toStdString());
        case Kind::beat: {
            const auto* entry = stores.newsrooms.beats().find(id);
            return entry ? titleText(entry->name) : QString();
        }
        case Kind::news: {
            const auto* story = stores.news.stories().find(id);
            return story ? titleText(story->title()) : QString();
        }
    }
    return {};
}

}  // namespace app
