#include "Tarnwick_Brell/Models/Charts/MoveLines.h"

#include <QCoreApplication>
#include <QLocale>

#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::Instant;
using kit::MoveReasonRow;
using kit::MoveRow;

struct MoveTexts {
    Q_DECLARE_TR_FUNCTIONS(MoveTexts)
};

/// A day of the exchange is the same everywhere.
QString dayOfMove(const kit::PriceMove& move, Instant now) {
    const auto day = kit::parseISO8601(move.day + "T00:00:00Z");
    return day ? dayText(*day, now, {.zone = Qt::UTC}) : titleText(move.day);
}

QString outletsText(const MoveReasonRow& reason, Instant now) {
    const auto first = momentText(reason.lead.publishedAt, now);
    if (reason.outlets < 2) return first;
    const auto others = static_cast<int>(reason.outlets) - 1;
    return MoveTexts::tr("and %n more, first %1", nullptr, others).arg(first);
}

MoveLine lineOf(const MoveReasonRow& reason, Instant now) {
    return {.reason = labelText(kit::label(reason.reason)),
            .title = titleText(reason.lead.title, kTitleCharacters),
            .sourcing = StorySourcing::of(reason.sourcing),
            .sourcingLabel = sourcingText(reason.sourcing),
            .outlet = titleText(reason.lead.outlet),
            .detail = outletsText(reason, now),
            .storyID = plainText(reason.lead.storyID)};
}

MoveLine lineWithoutReason(const MoveRow& move, const QString& company) {
    const auto count = static_cast<int>(move.stories);
    return {.title = MoveTexts::tr("No reported reason."),
            .detail = count == 0 ? MoveTexts::tr("%1 is in no headline of that day.").arg(company)
                                 : MoveTexts::tr("%n stories of that day name %1, none gives a "
                                                 "reason for the shares.",
                                                 nullptr, count)
                                       .arg(company)};
}

void addMoveText(MoveLine& line, const MoveRow& move, Instant now) {
    line.letter = QString::fromStdString(move.letter);
    line.day = dayOfMove(move.move, now);
    line.change = percentText(move.move.change);
    line.rises = move.move.change > 0;
    if (move.timesUsual)
        line.usual = MoveTexts::tr("%1× usual").arg(QLocale().toString(*move.timesUsual, 'f', 1));
}

}  // namespace

std::vector<MoveLine> moveLines(const std::vector<MoveRow>& moves, const QString& company,
                                Instant now) {
    std::vector<MoveLine> lines;
    for (const auto& move : moves) {
        std::vector<MoveLine> ofMove;
        for (const auto& reason : move.reasons) ofMove.push_back(lineOf(reason, now));
        if (ofMove.empty()) ofMove.push_back(lineWithoutReason(move, company));
        addMoveText(ofMove.front(), move, now);
        for (auto& line : ofMove) {
            line.spokenText = spokenRow({line.day, line.change, line.usual, line.reason, line.title,
                                         line.sourcingLabel, line.outlet, line.detail});
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

QString moveText(const MoveRow& move) {
    const auto change = percentText(move.move.change);
    if (move.reasons.empty()) return MoveTexts::tr("%1: no reported reason").arg(change);
    const auto& first = move.reasons.front();
    return MoveTexts::tr("%1, %2: %3")
        .arg(change, labelText(kit::label(first.reason)),
             titleText(first.lead.title, kTitleCharacters));
}

}  // namespace app
