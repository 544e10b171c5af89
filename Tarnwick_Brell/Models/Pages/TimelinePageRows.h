#pragma once

#include <vector>

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Panels/TimelinePageContent.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"

namespace app {

/// A heading, a step of how the subject firmed up, or a claim.
struct SubjectTimelineRow {
    Q_GADGET
    Q_PROPERTY(int part MEMBER part)
    Q_PROPERTY(QString date MEMBER date)
    Q_PROPERTY(app::StorySourcing::Value sourcing MEMBER sourcing)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString days MEMBER days)
    Q_PROPERTY(int outcome MEMBER outcome)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    enum Part { Heading, Step, Claim };
    Q_ENUM(Part)
    enum Outcome { Open, Confirmed, Denied };
    Q_ENUM(Outcome)

    int part = Heading;
    QString date{};
    StorySourcing::Value sourcing = StorySourcing::Unlabeled;
    QString label{};  ///< of the step's badge
    QString title{};
    QString outlet{};
    QString detail{};
    QString days{};  ///< since the step before; of a claim what became of it
    int outcome = Open;
    QString storyID{};
    QString spokenText{};

    bool operator==(const SubjectTimelineRow&) const = default;
};

/// A stage on the scale.
struct TimelineStageMark {
    Q_GADGET
    Q_PROPERTY(double place MEMBER place)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString date MEMBER date)
    Q_PROPERTY(QString days MEMBER days)
    Q_PROPERTY(double before MEMBER before)
    Q_PROPERTY(app::StorySourcing::Value sourcing MEMBER sourcing)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    double place = 0;  ///< 0 to 1
    QString name{};
    QString date{};
    QString days{};     ///< since the stage before it
    double before = 0;  ///< the place of that; the first stage's own
    StorySourcing::Value sourcing = StorySourcing::Unlabeled;
    QString spokenText{};

    bool operator==(const TimelineStageMark&) const = default;
};

/// The stories of a piece of the scale.
struct TimelineBar {
    Q_GADGET
    Q_PROPERTY(double level MEMBER level)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    double level = 0;  ///< of the most, 0 to 1
    QString spokenText{};

    bool operator==(const TimelineBar&) const = default;
};

/// A release of the subject.
struct TimelineReleaseRow {
    Q_GADGET
    Q_PROPERTY(double place MEMBER place)
    Q_PROPERTY(bool isRelease MEMBER isRelease)
    Q_PROPERTY(QString date MEMBER date)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    double place = 0;
    bool isRelease = false;  ///< else a beta, or another change
    QString date{};
    QString title{};
    QString spokenText{};

    bool operator==(const TimelineReleaseRow&) const = default;
};

/// A date below the scale.
struct TimelineTick {
    Q_GADGET
    Q_PROPERTY(double place MEMBER place)
    Q_PROPERTY(QString label MEMBER label)

public:
    double place = 0;
    QString label{};

    bool operator==(const TimelineTick&) const = default;
};

std::vector<SubjectTimelineRow> timelinePageRows(const kit::TimelinePage& content);
std::vector<TimelineStageMark> stageMarks(const kit::TimelinePage& content);
std::vector<TimelineBar> timelineBars(const kit::TimelinePage& content);
/// The latest first.
std::vector<TimelineReleaseRow> timelineReleases(const kit::TimelinePage& content);
std::vector<TimelineTick> timelinePageTicks(const kit::TimelinePage& content);

}  // namespace app
