#include "Tarnwick_Brell/Presentation/BriefText.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::BriefContent;
using kit::Instant;
using kit::TrackerChange;
using Kind = kit::TrackerChange::Kind;

struct BriefText {
    Q_DECLARE_TR_FUNCTIONS(BriefText)
};

QString sentenceOf(const BriefContent::Topic& topic, Instant, const Style&) {
    return titleText(topic.headline.title, kTitleCharacters);
}

QString sentenceOf(const BriefContent::ApplePosts& posts, Instant, const Style&) {
    const auto title = titleText(posts.latest.title, kTitleCharacters);
    const auto count = static_cast<int>(posts.count);
    return count == 1 ? BriefText::tr("Apple posted: %1").arg(title)
                      : BriefText::tr("Apple posted %n times, last: %1", nullptr, count).arg(title);
}

QString sentenceOf(const TrackerChange& change, Instant now, const Style& style) {
    if (change.kind == Kind::logged) return titleText(change.subject, kTitleCharacters);
    const auto subject = titleText(change.subject);
    if (change.kind == Kind::problem) {
        return change.at ? BriefText::tr("%1 is having a problem since %2.")
                               .arg(subject, momentText(*change.at, now, style))
                         : BriefText::tr("%1 is having a problem.").arg(subject);
    }
    const auto build = titleText(change.build);
    return build.isEmpty() ? BriefText::tr("%1 is out.").arg(subject)
                           : BriefText::tr("%1 is out, build %2.").arg(subject, build);
}

QString sourcesOf(const BriefContent::Topic& topic, Instant now, const Style& style) {
    return sourcesText(topic.outlets, now, style);
}

QString sourcesOf(const BriefContent::ApplePosts& posts, Instant now, const Style& style) {
    return sourcesText({posts.latest}, now, style);
}

QString sourcesOf(const TrackerChange& change, Instant now, const Style& style) {
    const auto name = change.kind == Kind::problem  ? BriefText::tr("System Status")
                      : change.kind == Kind::logged ? labelText(label(change.signal))
                                                    : BriefText::tr("Apple Developer Releases");
    const auto time = change.kind == Kind::build ? change.at : change.seenAt;
    return time ? name + u' ' + momentText(*time, now, style) : name;
}

}  // namespace

QString briefSentence(const kit::BriefItem& item, Instant now, const Style& style) {
    return std::visit([&](const auto& kind) { return sentenceOf(kind, now, style); }, item);
}

QString briefSources(const kit::BriefItem& item, Instant now, const Style& style) {
    return std::visit([&](const auto& kind) { return sourcesOf(kind, now, style); }, item);
}

QString nothingNewText(const BriefContent& content) {
    return content.since ? BriefText::tr("Nothing new since your last look.")
                         : BriefText::tr("Nothing new in the last 24 hours.");
}

}  // namespace app
