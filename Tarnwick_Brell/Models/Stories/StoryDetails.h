#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Panels/StoryTimeline.h"
#include "Tarnwick_Brell/Storage/Tables/StoryTable.h"

/// What is known of a story beside itself, as the reader and a printed story show it.
namespace app {

/// An outlet, account or document that the story credits.
struct CreditRow {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString link MEMBER link)
    Q_PROPERTY(QString detail MEMBER detail)

public:
    QString name{};
    QString link{};  ///< empty when it can't be opened
    QString detail{};

    bool operator==(const CreditRow&) const = default;
};

/// A headline that the story had before.
struct WordingRow {
    Q_GADGET
    Q_PROPERTY(QString until MEMBER until)
    Q_PROPERTY(QString title MEMBER title)

public:
    QString until{};
    QString title{};

    bool operator==(const WordingRow&) const = default;
};

/// An outlet's first story of the news, in the order of publication.
struct TimelineRow {
    Q_GADGET
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString lead MEMBER lead)
    Q_PROPERTY(QString why MEMBER why)
    Q_PROPERTY(bool isFirst MEMBER isFirst)
    Q_PROPERTY(bool isThis MEMBER isThis)

public:
    QString storyID{};
    QString time{};
    QString outlet{};
    QString title{};
    QString lead{};
    QString why{};         ///< it is thought to tell the same news; empty for the cluster's leader
    bool isFirst = false;  ///< as far as times say
    bool isThis = false;   ///< the story itself

    bool operator==(const TimelineRow&) const = default;
};

/// How times are written: short beside a clock, whole on paper.
using TimeWriter = std::function<QString(kit::Instant)>;

inline constexpr int kWholeTitleCharacters = 1000;

std::vector<CreditRow> creditRows(const std::vector<kit::SourceCredit>& credits,
                                  const TimeWriter& write);
std::vector<WordingRow> wordingRows(const std::vector<EarlierWording>& wordings,
                                    const TimeWriter& write);
/// `storyID`: of the story itself.
std::vector<TimelineRow> timelineRows(const kit::StoryTimeline& timeline,
                                      const std::string& storyID, const TimeWriter& write);

}  // namespace app
