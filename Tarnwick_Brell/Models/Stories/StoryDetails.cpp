#include "Tarnwick_Brell/Models/Stories/StoryDetails.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct StoryDetails {
    Q_DECLARE_TR_FUNCTIONS(StoryDetails)
};

}  // namespace

std::vector<CreditRow> creditRows(const std::vector<kit::SourceCredit>& credits,
                                  const TimeWriter& write) {
    std::vector<CreditRow> rows;
    for (const auto& credit : credits) {
        CreditRow row{.name = titleText(credit.name, 80)};
        if (credit.url) row.link = openableLink(*credit.url);
        if (credit.detail) row.detail = u'“' + titleText(*credit.detail, 60) + u'”';
        if (credit.platform)
            row.detail = StoryDetails::tr("post on %1").arg(titleText(*credit.platform, 30));
        if (credit.postedAt) row.detail += QStringLiteral(", ") + write(*credit.postedAt);
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<WordingRow> wordingRows(const std::vector<EarlierWording>& wordings,
                                    const TimeWriter& write) {
    std::vector<WordingRow> rows;
    for (const auto& wording : wordings) {
        rows.push_back({.until = StoryDetails::tr("Until %1").arg(write(wording.replacedAt)),
                        .title = titleText(wording.title, kWholeTitleCharacters)});
    }
    return rows;
}

std::vector<TimelineRow> timelineRows(const kit::StoryTimeline& timeline,
                                      const std::string& storyID, const TimeWriter& write) {
    std::vector<TimelineRow> rows;
    for (const auto& [told, delay, isFirst, why] : timeline.rows) {
        rows.push_back({.storyID = plainText(told.storyID),
                        .time = write(told.publishedAt),
                        .outlet = titleText(told.outlet, 60),
                        .title = titleText(told.title, kTitleCharacters),
                        .lead = isFirst ? StoryDetails::tr("First")
                                : delay ? delayText(*delay)
                                        : QString(),
                        .why = plainText(why),
                        .isFirst = isFirst,
                        .isThis = told.storyID == storyID});
    }
    return rows;
}

}  // namespace app
