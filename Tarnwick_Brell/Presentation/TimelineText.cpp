#include "Tarnwick_Brell/Presentation/TimelineText.h"

#include <chrono>

#include <QCoreApplication>
#include <QStringList>

#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::LedgerClaim;
using kit::TimelineStage;

struct TimelineWords {
    Q_DECLARE_TR_FUNCTIONS(TimelineWords)
};

/// Characters that Markdown would read as its own.
QString escaped(QString text) {
    for (const auto mark : {u'\\', u'*', u'_', u'[', u']', u'`', u'<', u'#', u'|'})
        text.replace(mark, QStringLiteral("\\") + mark);
    return text;
}

QString stepLine(const kit::TimelinePage::Step& step) {
    QStringList parts{escaped(titleText(step.title(), kTitleCharacters))};
    if (step.row.story) parts << escaped(titleText(step.row.story->outlet));
    if (const auto days = daysText(step.row.stage.days); !days.isEmpty())
        parts << TimelineWords::tr("%1 later").arg(days);
    return QStringLiteral("- **%1**, %2: %3\n")
        .arg(stageName(step.row.stage.stage), wholeMomentText(step.row.stage.at),
             parts.join(QStringLiteral(" · ")));
}

QString claimLine(const kit::LedgerRow& claim) {
    return QStringLiteral("- %1 (%2, %3): %4\n")
        .arg(escaped(titleText(claim.story.title, kTitleCharacters)),
             escaped(titleText(claim.claim.outlet)), wholeMomentText(claim.claim.at),
             outcomeText(claim.claim));
}

}  // namespace

QString stageName(TimelineStage::Stage stage) { return labelText(kit::label(stage)); }

QString stageBadge(TimelineStage::Stage stage) {
    switch (stage) {
        case TimelineStage::Stage::firstRumor: return labelText(label(kit::Sourcing::rumor));
        case TimelineStage::Stage::firstReport: return labelText(label(kit::Sourcing::report));
        case TimelineStage::Stage::onRecord: return labelText(label(kit::Sourcing::onRecord));
        case TimelineStage::Stage::confirmed: return labelText(label(kit::Sourcing::confirmed));
        case TimelineStage::Stage::released: return TimelineWords::tr("Released");
    }
    return {};
}

QString stageDate(const kit::TimelinePage& content, kit::Instant at, const Style& style) {
    return content.barSpan < std::chrono::days(1) ? momentText(at, content.to, style)
                                                  : shortDayText(at, content.to, style);
}

QString daysText(std::optional<double> days) {
    if (!days) return {};
    if (*days >= 2) return TimelineWords::tr("%n days", nullptr, static_cast<int>(*days));
    const std::chrono::duration<double, std::ratio<86'400>> span(*days);
    return spanText(std::chrono::duration_cast<kit::Instant::duration>(span));
}

QString stepDetail(const kit::TimelinePage::Step& step) {
    const auto& attribution = step.attribution;
    if (!step.row.story || step.outlets < 2) return {};
    const auto count = static_cast<int>(step.outlets);
    if (attribution.story != step.row.story->storyID ||
        attribution.confidence == kit::Attribution::Confidence::unclear)
        return TimelineWords::tr("%n outlets", nullptr, count);
    const auto first = TimelineWords::tr("first of %n", nullptr, count);
    return QStringList{first, leadText(attribution, {})}.join(QStringLiteral(", "));
}

QString outcomeText(const LedgerClaim& claim) {
    const auto days = daysText(claim.days);
    switch (claim.state) {
        case LedgerClaim::State::open: return TimelineWords::tr("Open");
        case LedgerClaim::State::expired: return TimelineWords::tr("Open for over a year");
        case LedgerClaim::State::confirmed:
            return days.isEmpty() ? TimelineWords::tr("Confirmed")
                                  : TimelineWords::tr("Confirmed after %1").arg(days);
        case LedgerClaim::State::denied:
            return days.isEmpty() ? TimelineWords::tr("Denied")
                                  : TimelineWords::tr("Denied after %1").arg(days);
    }
    return {};
}

QString timelineMarkdown(const kit::TimelinePage& content, const QString& subject) {
    auto text = QStringLiteral("# %1\n\n").arg(escaped(subject));
    text += TimelineWords::tr("%n stories", nullptr, static_cast<int>(content.stories)) +
            QStringLiteral(", %1 – %2\n\n")
                .arg(wholeMomentText(content.from), wholeMomentText(content.to));
    text += QStringLiteral("## ") + TimelineWords::tr("How it firmed up") + QStringLiteral("\n\n");
    for (const auto& step : content.steps) text += stepLine(step);
    if (!content.claims.empty()) {
        text += QStringLiteral("\n## ") + TimelineWords::tr("What was claimed") +
                QStringLiteral("\n\n");
        for (const auto& claim : content.claims) text += claimLine(claim);
    }
    if (!content.releases.empty()) {
        text += QStringLiteral("\n## ") + TimelineWords::tr("Releases") + QStringLiteral("\n\n");
        for (const auto& release : content.releases)
            text += QStringLiteral("- %1: %2\n")
                        .arg(wholeMomentText(*release.at()), escaped(titleText(release.title)));
    }
    return text;
}

}  // namespace app
