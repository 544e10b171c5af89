#include "Tarnwick_Brell/Models/Pages/TimelinePageRows.h"

#include <algorithm>

#include <QCoreApplication>
#include <QLocale>

#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimelineText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::Instant;
using kit::TimelinePage;
using kit::TimelineStage;

constexpr int kTimelineTicks = 6;

struct TimelineRows {
    Q_DECLARE_TR_FUNCTIONS(TimelineRows)
};

double placeOf(const TimelinePage& content, Instant at) {
    const std::chrono::duration<double> whole = content.to - content.from;
    const std::chrono::duration<double> part = at - content.from;
    return whole.count() > 0 ? std::clamp(part / whole, 0.0, 1.0) : 0;
}

StorySourcing::Value sourcingOf(TimelineStage::Stage stage) {
    switch (stage) {
        case TimelineStage::Stage::firstRumor: return StorySourcing::Rumor;
        case TimelineStage::Stage::firstReport: return StorySourcing::Report;
        case TimelineStage::Stage::onRecord: return StorySourcing::OnRecord;
        case TimelineStage::Stage::confirmed: return StorySourcing::Confirmed;
        case TimelineStage::Stage::released: return StorySourcing::Unlabeled;
    }
    return StorySourcing::Unlabeled;
}

SubjectTimelineRow headingRow(const QString& title, const QString& detail) {
    return {.part = SubjectTimelineRow::Heading,
            .title = title,
            .detail = detail,
            .spokenText = spokenRow({title, detail})};
}

SubjectTimelineRow stepRow(const TimelinePage& content, const TimelinePage::Step& step) {
    SubjectTimelineRow row{.part = SubjectTimelineRow::Step,
                           .date = stageDate(content, step.row.stage.at),
                           .sourcing = sourcingOf(step.row.stage.stage),
                           .label = stageBadge(step.row.stage.stage),
                           .title = titleText(step.title(), kTitleCharacters),
                           .detail = stepDetail(step),
                           .days = daysText(step.row.stage.days)};
    if (step.row.story) {
        row.outlet = titleText(step.row.story->outlet, 60);
        row.storyID = plainText(step.row.story->storyID);
    }
    row.spokenText =
        spokenRow({row.date, row.label, row.title, row.outlet, row.detail,
                   row.days.isEmpty() ? QString() : TimelineRows::tr("%1 later").arg(row.days)});
    return row;
}

SubjectTimelineRow claimRow(const TimelinePage& content, const kit::LedgerRow& claim) {
    using State = kit::LedgerClaim::State;
    SubjectTimelineRow row{.part = SubjectTimelineRow::Claim,
                           .date = stageDate(content, claim.claim.at),
                           .title = titleText(claim.story.title, kTitleCharacters),
                           .outlet = titleText(claim.claim.outlet, 60),
                           .days = outcomeText(claim.claim),
                           .storyID = plainText(claim.claim.story)};
    if (claim.claim.state == State::confirmed) row.outcome = SubjectTimelineRow::Confirmed;
    if (claim.claim.state == State::denied) row.outcome = SubjectTimelineRow::Denied;
    row.spokenText = spokenRow({row.date, row.title, row.outlet, row.days});
    return row;
}

QString claimsFact(const TimelinePage& content) {
    QStringList facts{
        TimelineRows::tr("%n claims", nullptr, static_cast<int>(content.claims.size()))};
    if (content.confirmed > 0)
        facts << TimelineRows::tr("%n confirmed", nullptr, static_cast<int>(content.confirmed));
    if (content.denied > 0)
        facts << TimelineRows::tr("%n denied", nullptr, static_cast<int>(content.denied));
    return facts.join(QStringLiteral(", "));
}

}  // namespace

std::vector<SubjectTimelineRow> timelinePageRows(const TimelinePage& content) {
    std::vector<SubjectTimelineRow> rows;
    const auto stories = static_cast<int>(content.stories);
    rows.push_back(headingRow(TimelineRows::tr("How it firmed up"),
                              TimelineRows::tr("%n stories", nullptr, stories)));
    for (const auto& step : content.steps) rows.push_back(stepRow(content, step));
    if (content.claims.empty()) return rows;
    rows.push_back(headingRow(TimelineRows::tr("What was claimed"), claimsFact(content)));
    for (const auto& claim : content.claims) rows.push_back(claimRow(content, claim));
    return rows;
}

std::vector<TimelineStageMark> stageMarks(const TimelinePage& content) {
    std::vector<TimelineStageMark> marks;
    for (const auto& step : content.steps) {
        TimelineStageMark mark{.place = placeOf(content, step.row.stage.at),
                               .name = stageName(step.row.stage.stage),
                               .date = stageDate(content, step.row.stage.at),
                               .days = daysText(step.row.stage.days),
                               .sourcing = sourcingOf(step.row.stage.stage)};
        mark.before = marks.empty() ? mark.place : marks.back().place;
        mark.spokenText = spokenRow({mark.name, mark.date});
        marks.push_back(std::move(mark));
    }
    return marks;
}

std::vector<TimelineBar> timelineBars(const TimelinePage& content) {
    std::size_t most = 1;
    for (const auto& bar : content.bars) most = std::max(most, bar.stories);
    std::vector<TimelineBar> bars;
    for (const auto& bar : content.bars) {
        const auto level = static_cast<double>(bar.stories) / static_cast<double>(most);
        bars.push_back(
            {.level = level,
             .spokenText = spokenRow(
                 {stageDate(content, bar.begins),
                  TimelineRows::tr("%n stories", nullptr, static_cast<int>(bar.stories))})});
    }
    return bars;
}

std::vector<TimelineReleaseRow> timelineReleases(const TimelinePage& content) {
    std::vector<TimelineReleaseRow> rows;
    for (const auto& release : content.releases) {
        rows.push_back({.place = placeOf(content, *release.at()),
                        .isRelease = release.isRelease(),
                        .date = shortDayText(*release.at(), content.to),
                        .title = titleText(release.title)});
        rows.back().spokenText = spokenRow({rows.back().date, rows.back().title});
    }
    std::ranges::reverse(rows);
    return rows;
}

std::vector<TimelineTick> timelinePageTicks(const TimelinePage& content) {
    std::vector<TimelineTick> ticks;
    for (int i = 0; i < kTimelineTicks; ++i) {
        const auto at = content.from + (content.to - content.from) * i / kTimelineTicks;
        ticks.push_back(
            {.place = static_cast<double>(i) / kTimelineTicks, .label = stageDate(content, at)});
    }
    return ticks;
}

}  // namespace app
