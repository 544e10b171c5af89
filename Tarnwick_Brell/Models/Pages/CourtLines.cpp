#include "Tarnwick_Brell/Models/Pages/CourtLines.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct CourtLineText {
    Q_DECLARE_TR_FUNCTIONS(CourtLineText)
};

constexpr int kLongestCaseWord = 80;
constexpr int kLongestKind = 16;  // of a badge

QString filedText(std::optional<kit::Instant> filed, bool dayOnly, kit::Instant now) {
    if (!filed) return {};
    return dayOnly ? namedDayText(*filed, now) : shortDayText(*filed, now);
}

CaseLine followedLine(const kit::CourtCaseRow& row, kit::Instant now) {
    const auto unseen = static_cast<int>(row.unseen);
    CaseLine line{.name = row.name.empty() ? CourtLineText::tr("Docket %1").arg(row.followed.docket)
                                           : titleText(row.name, kTitleCharacters),
                  .detail = caseDetail(row.found ? row.found->courtName : row.court, row.number,
                                       row.found ? row.found->judge : std::string()),
                  .when = filedText(row.latest, row.dayOnly, now),
                  .fact = unseen > 0 ? CourtLineText::tr("%n new", nullptr, unseen) : QString(),
                  .isNew = unseen > 0};
    if (line.detail.isEmpty() && row.entries == 0)
        line.detail = CourtLineText::tr("Nothing has been read of it yet.");
    line.spokenText = spokenRow({line.name, line.detail, line.when, line.fact});
    return line;
}

CaseLine newCaseLine(const SeenCase& seen, std::optional<kit::Instant> lookedAt, kit::Instant now) {
    const auto& found = seen.found;
    CaseLine line{.name = titleText(found.name, kTitleCharacters),
                  .detail = caseDetail(found.courtName.empty() ? found.court : found.courtName,
                                       found.number, found.nature),
                  .when = filedText(found.filed ? found.filed : seen.firstSeen, true, now),
                  .canFollow = true,
                  .isNew = lookedAt && seen.firstSeen > *lookedAt};
    line.spokenText = spokenRow({line.isNew ? CourtLineText::tr("New") : QString(), line.name,
                                 line.detail, CourtLineText::tr("filed %1").arg(line.when)});
    return line;
}

EntryLine entryLine(const kit::CourtItem& item, std::optional<kit::Instant> lookedAt,
                    kit::Instant now) {
    const auto& entry = item.entry;
    EntryLine line{
        .day = entry.date ? filedText(entry.date, entry.dayOnly, now)
                          : shortDayText(item.firstSeen, now),
        .number = titleText(entry.number.value_or(""), kLongestCaseWord),
        .kind = titleText(entry.kind, kLongestKind),
        .text = titleText(entry.text.empty() ? entry.kind : entry.text, kTitleCharacters),
        .isNew = lookedAt && item.firstSeen > *lookedAt,
        .link = openableLink(entry.documentLink.value_or(entry.link.value_or("")))};
    if (entry.paid) {
        line.isFree = !*entry.paid;
        line.document = line.isFree ? CourtLineText::tr("Free") : CourtLineText::tr("PACER, paid");
    }
    line.spokenText = spokenRow(
        {line.isNew ? CourtLineText::tr("New") : QString(), line.day,
         line.number.isEmpty() ? QString() : CourtLineText::tr("entry %1").arg(line.number),
         line.kind, line.text, line.document});
    return line;
}

}  // namespace

QString caseDetail(const std::string& court, const std::string& number, const std::string& judge) {
    QStringList parts;
    for (const auto& part : {court, number, judge}) {
        if (!part.empty()) parts << titleText(part, kLongestCaseWord);
    }
    return parts.join(QStringLiteral(" · "));
}

std::vector<CaseLine> caseLines(const std::vector<kit::CourtCaseRow>& followed,
                                const std::vector<SeenCase>& others,
                                std::optional<kit::Instant> lookedAt, kit::Instant now) {
    std::vector<CaseLine> lines;
    for (const auto& row : followed) lines.push_back(followedLine(row, now));
    bool isFirst = true;
    for (const auto& seen : others) {
        auto line = newCaseLine(seen, lookedAt, now);
        if (isFirst) line.heading = CourtLineText::tr("New cases naming Apple");
        isFirst = false;
        lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<EntryLine> entryLines(const kit::CourtContent& content, const QString& missing,
                                  std::optional<kit::Instant> lookedAt, kit::Instant now) {
    std::vector<EntryLine> lines;
    if (!missing.isEmpty()) {
        const auto text = CourtLineText::tr("The feed lacks the entries %1.").arg(missing);
        lines.push_back({.text = text, .isRemark = true, .spokenText = text});
    }
    for (const auto& item : content.items) lines.push_back(entryLine(item, lookedAt, now));
    if (content.routine > 0) {
        const auto text = CourtLineText::tr("%n routine entries are left out.", nullptr,
                                            static_cast<int>(content.routine));
        lines.push_back({.text = text, .isRemark = true, .spokenText = text});
    }
    return lines;
}

}  // namespace app
