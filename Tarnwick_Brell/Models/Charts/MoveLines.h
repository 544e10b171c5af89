#pragma once

#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Panels/MovesContent.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"

namespace app {

/// A line of the list of moves: a move with the first reason that was reported for it, or that
/// none was; or another reason of the move above.
struct MoveLine {
    Q_GADGET
    Q_PROPERTY(QString letter MEMBER letter)
    Q_PROPERTY(QString day MEMBER day)
    Q_PROPERTY(QString change MEMBER change)
    Q_PROPERTY(bool rises MEMBER rises)
    Q_PROPERTY(QString usual MEMBER usual)
    Q_PROPERTY(QString reason MEMBER reason)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(app::StorySourcing::Value sourcing MEMBER sourcing)
    Q_PROPERTY(QString sourcingLabel MEMBER sourcingLabel)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString letter{};  ///< empty for another reason
    QString day{};
    QString change{};
    bool rises = false;
    QString usual{};   ///< "2.4× usual"; empty where prices do not move usually
    QString reason{};  ///< empty when none was reported
    QString title{};
    StorySourcing::Value sourcing = StorySourcing::Unlabeled;
    QString sourcingLabel{};
    QString outlet{};
    QString detail{};   ///< who else had it, and since when
    QString storyID{};  ///< of the reason's best story
    QString spokenText{};

    bool operator==(const MoveLine&) const = default;
};

/// `company` is the one whose price moves.
std::vector<MoveLine> moveLines(const std::vector<kit::MoveRow>& moves, const QString& company,
                                kit::Instant now);

/// A move in a sentence, for its mark on a chart: how far, and the first reported reason.
QString moveText(const kit::MoveRow& move);

}  // namespace app
