#include "Tarnwick_Brell/Models/Pages/RecordLines.h"

#include <chrono>
#include <cmath>

#include <QCoreApplication>
#include <QLocale>

#include "NewsroomKit/Filings/TradeCode.h"
#include "Tarnwick_Brell/Presentation/FilingText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct RecordLineText {
    Q_DECLARE_TR_FUNCTIONS(RecordLineText)
};

constexpr int kLongestName = 60;
constexpr double kMillion = 1e6;

std::optional<kit::Instant> dayInstant(const std::string& day) {
    return kit::parseISO8601(day + "T00:00:00Z");
}

bool isNewSince(kit::Instant firstSeen, std::optional<kit::Instant> lookedAt) {
    return lookedAt && firstSeen > *lookedAt;
}

QString newWord(bool isNew) { return isNew ? RecordLineText::tr("New") : QString(); }

/// Lines of one day share its heading.
template <class Line>
void addUnder(std::vector<Line>& lines, QString& last, const QString& heading, Line line) {
    if (heading != last) line.heading = heading;
    last = heading;
    lines.push_back(std::move(line));
}

/// The day in New York on which the filing was accepted, else its legal day.
QString acceptedDayText(const kit::FilingRow& row, kit::Instant now) {
    const auto filed = dayInstant(row.filing.filed);
    if (!filed) return titleText(row.filing.filed, kLongestName);
    return namedDayText(*filed - std::chrono::days(row.daysOff), now);
}

QString acceptedText(const kit::FilingRow& row, kit::Instant now) {
    const auto clock = plainText(row.acceptedClock.value_or(""));
    if (row.daysOff == 0) return clock;
    const auto dated = RecordLineText::tr("dated %1").arg(recordDayText(row.filing.filed, now));
    return clock.isEmpty() ? dated : RecordLineText::tr("%1, %2").arg(dated, clock);
}

}  // namespace

QString recordDayText(const std::string& day, kit::Instant now) {
    const auto instant = dayInstant(day);
    return instant ? namedDayText(*instant, now) : titleText(day, kLongestName);
}

QString sharesText(double shares) {
    return QLocale().toString(shares, 'f', shares == std::floor(shares) ? 0 : 2);
}

QString valueText(double dollars) {
    constexpr double kLeastInMillions = kMillion / 20;
    if (dollars < kLeastInMillions) return priceText(dollars);
    return RecordLineText::tr("%1 M").arg(QLocale().toString(dollars / kMillion, 'f', 1));
}

QString tradingPlanText(kit::TradingPlan plan, const std::optional<std::string>& day,
                        kit::Instant now) {
    if (plan == kit::TradingPlan::yes && day) return recordDayText(*day, now);
    return labelText(label(plan));
}

std::vector<RecordLine> filingLines(const std::vector<kit::FilingRow>& rows,
                                    std::optional<kit::Instant> lookedAt, kit::Instant now) {
    std::vector<RecordLine> lines;
    QString last;
    for (const auto& row : rows) {
        RecordLine line{.badge = titleText(row.filing.form, kLongestName),
                        .text = filingWordsText(row),
                        .mark = row.isAmended ? RecordLineText::tr("Amended") : QString(),
                        .company = titleText(row.company, kLongestName),
                        .when = acceptedText(row, now),
                        .isDatedOtherwise = row.daysOff != 0,
                        .isNew = isNewSince(row.seenAt, lookedAt)};
        const auto day = acceptedDayText(row, now);
        line.spokenText = spokenRow({newWord(line.isNew), line.badge, line.text, line.mark,
                                     line.company, day, filingTimesText(row)});
        addUnder(lines, last, day, std::move(line));
    }
    return lines;
}

std::vector<RecordLine> pressLines(const std::vector<kit::PressRow>& rows,
                                   std::optional<kit::Instant> lookedAt, kit::Instant now) {
    std::vector<RecordLine> lines;
    QString last;
    for (const auto& row : rows) {
        const auto& release = row.item.release;
        const auto published = release.published.value_or(row.item.firstSeen);
        RecordLine line{.badge = titleText(release.symbol.value_or(""), kLongestName),
                        .text = titleText(release.title, kTitleCharacters),
                        .mark = row.filing ? RecordLineText::tr("Filed as %1")
                                                 .arg(titleText(row.filing->form, kLongestName))
                                           : QString(),
                        .company = titleText(row.company, kLongestName),
                        .when = clockText(published),
                        .isNew = isNewSince(row.item.firstSeen, lookedAt)};
        const auto day = shortDayText(published, now);
        line.spokenText = spokenRow(
            {newWord(line.isNew), line.text, line.mark, line.company, momentText(published, now)});
        addUnder(lines, last, day, std::move(line));
    }
    return lines;
}

namespace {

QString monthText(const std::string& day) {
    const auto instant = dayInstant(day);
    if (!instant) return RecordLineText::tr("Without a date");
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(*instant));
    return RecordLineText::tr("%1 %2")
        .arg(QLocale().standaloneMonthName(static_cast<int>(unsigned(date.month()))))
        .arg(int(date.year()));
}

QString remarkText(const kit::InsiderRow& row, kit::Instant now) {
    QStringList remarks;
    if (row.notice && !row.sums.empty()) {
        const auto day = row.notice->noticeDate.value_or("");
        remarks << (day.empty() ? RecordLineText::tr("Announced on form 144")
                                : RecordLineText::tr("Announced on %1 on form 144")
                                      .arg(recordDayText(day, now)));
    }
    if (row.isLate) remarks << RecordLineText::tr("reported late");
    if (row.isAmended) remarks << RecordLineText::tr("a form of it corrects another");
    return remarks.join(QStringLiteral(" · "));
}

InsiderLine personLine(const kit::InsiderRow& row, kit::Instant now) {
    return {.person = titleText(row.person, kLongestName),
            .title = titleText(row.title.value_or(""), kLongestName),
            .day = recordDayText(row.lastDay, now)};
}

QString holdingText(const kit::InsiderRow& row) {
    return row.shareOfHolding
               ? RecordLineText::tr("%1 %").arg(QLocale().toString(*row.shareOfHolding, 'f', 0))
               : QString();
}

void addPlan(InsiderLine& line, const kit::InsiderRow& row, kit::Instant now) {
    line.plan = tradingPlanText(row.plan, row.planDay, now);
    line.planKind = static_cast<int>(row.plan);
}

InsiderLine noticeLine(const kit::InsiderRow& row, kit::Instant now) {
    auto line = personLine(row, now);
    line.did = RecordLineText::tr("Will sell");
    if (row.notice->shares) line.shares = sharesText(*row.notice->shares);
    if (row.notice->value) line.value = QStringLiteral("≈ ") + valueText(*row.notice->value);
    line.day = QStringLiteral("~ ") + line.day;
    addPlan(line, row, now);
    return line;
}

InsiderLine tradeLine(const kit::InsiderRow& row, const kit::TradeSum& sum, kit::Instant now) {
    auto line = personLine(row, now);
    line.did = titleText(kit::tradeVerb(sum.code, sum.acquired), kLongestName);
    if (!line.did.isEmpty()) line.did[0] = line.did[0].toUpper();
    line.shares = sharesText(sum.shares);
    if (sum.averagePrice && *sum.averagePrice > 0) line.average = priceText(*sum.averagePrice);
    if (sum.value && *sum.value > 0) line.value = valueText(*sum.value);
    line.isQuiet = !kit::isDecision(sum.code);
    if (!line.isQuiet) {
        line.holding = holdingText(row);
        addPlan(line, row, now);
    }
    return line;
}

QString spokenInsider(const InsiderLine& line) {
    return spokenRow(
        {line.person, line.title, line.did,
         line.shares.isEmpty() ? QString() : RecordLineText::tr("%1 shares").arg(line.shares),
         line.average.isEmpty() ? QString() : RecordLineText::tr("average %1").arg(line.average),
         line.value, line.plan, line.note, line.day});
}

}  // namespace

std::vector<InsiderLine> insiderLines(const std::vector<kit::InsiderRow>& rows, bool showsRoutine,
                                      kit::Instant now, std::vector<std::size_t>& places) {
    std::vector<InsiderLine> lines;
    places.clear();
    QString last;
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const auto& row = rows[place];
        std::vector<InsiderLine> own;
        if (row.sums.empty() && row.notice) own.push_back(noticeLine(row, now));
        for (const auto& sum : row.sums) {
            if (showsRoutine || kit::isDecision(sum.code)) own.push_back(tradeLine(row, sum, now));
        }
        if (!own.empty()) own.back().note = remarkText(row, now);
        for (auto& line : own) {
            line.spokenText = spokenInsider(line);
            addUnder(lines, last, monthText(row.lastDay), std::move(line));
            places.push_back(place);
        }
    }
    return lines;
}

}  // namespace app
