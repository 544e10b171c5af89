#include "Tarnwick_Brell/Models/Pages/BackendPageRows.h"

#include <algorithm>

#include <QCoreApplication>
#include <QStringList>

#include "Tarnwick_Brell/Presentation/FindingText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct BackendRows {
    Q_DECLARE_TR_FUNCTIONS(BackendRows)
};

QString findingBadge(const kit::BackendFinding& finding) {
    if (finding.kind == kit::FindingKind::wentBack) return BackendRows::tr("Went back");
    return finding.isTold ? QString() : BackendRows::tr("Not told");
}

FindingLine findingLine(const kit::BackendFinding& finding, bool isNew, kit::Instant now) {
    FindingLine line{.time = clockText(finding.seenAt),
                     .title = titleText(finding.title, kTitleCharacters),
                     .extent = titleText(finding.extent),
                     .badge = findingBadge(finding),
                     .isQuiet = !finding.isTold,
                     .isNew = isNew,
                     .hasNode = true};
    if (const auto* file = kit::watchedFile(finding.file)) {
        line.detail = plainText(file->name);
        line.link = openableLink(file->address);
    }
    QStringList spoken{line.title, line.detail, line.extent};
    if (isNew) spoken.prepend(BackendRows::tr("New"));
    if (!line.badge.isEmpty()) spoken << line.badge;
    spoken << BackendRows::tr("seen %1").arg(momentText(finding.seenAt, now));
    line.spokenText = spoken.join(QStringLiteral(", "));
    return line;
}

QString stateNumber(const kit::StateLine& line) {
    return line.number > 0 ? QString::number(line.number) : QString();
}

}  // namespace

std::vector<FindingLine> findingLines(const std::vector<StoredFinding>& found,
                                      std::int64_t lookedAt, kit::Instant now) {
    std::vector<FindingLine> lines;
    QString last;
    for (const auto& stored : found) {
        const auto day = dayHeadingText(stored.finding.seenAt, now);
        lines.push_back(findingLine(stored.finding, stored.number > lookedAt, now));
        if (day != last) lines.back().heading = day;
        last = day;
    }
    return lines;
}

FindingLine watchedFileLine(const kit::WatchedFile& file,
                            const kit::CachedValue<kit::WatchedAnswer>& answer, kit::Instant now) {
    FindingLine line{.title = plainText(file.name), .link = openableLink(file.address)};
    line.isFailing = answer.error.has_value();
    line.detail = line.isFailing ? titleText(*answer.error) : line.link;
    if (answer.fetchedAt) line.time = ageText(*answer.fetchedAt, now);
    if (answer.value) {
        line.extent =
            BackendRows::tr("%n entries", nullptr, static_cast<int>(answer.value->entries));
    }
    line.spokenText =
        QStringList{line.title, line.detail, line.extent, line.time}.join(QStringLiteral(", "));
    return line;
}

QString watchedFileText(const kit::WatchedFile& file,
                        const kit::CachedValue<kit::WatchedAnswer>& answer, kit::Instant now) {
    QStringList text{BackendRows::tr("An entry is known by its %1.").arg(plainText(file.identity)),
                     BackendRows::tr("The file is asked for every %n minutes.", nullptr,
                                     static_cast<int>(file.interval.count()))};
    QStringList ignored;
    for (const auto field : file.ignoredFields) {
        if (!field.empty()) ignored << plainText(field);
    }
    if (!ignored.isEmpty())
        text << BackendRows::tr("Left out: %1.").arg(ignored.join(QStringLiteral(", ")));
    if (answer.fetchedAt)
        text << BackendRows::tr("Last read %1.").arg(momentText(*answer.fetchedAt, now));
    if (answer.error) text << titleText(*answer.error, kExcerptCharacters);
    return text.join(QLatin1Char(' '));
}

std::vector<StateRow> stateRows(const kit::FindingSides& sides) {
    std::vector<StateRow> rows(std::max(sides.before.size(), sides.after.size()));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        QStringList spoken;
        if (i < sides.before.size()) {
            const auto& line = sides.before[i];
            rows[i].beforeNumber = stateNumber(line);
            rows[i].before = stateLineText(line);
            rows[i].isGone = line.isChanged;
            spoken << (line.isChanged ? BackendRows::tr("Gone: %1") : BackendRows::tr("Before: %1"))
                          .arg(rows[i].before.trimmed());
        }
        if (i < sides.after.size()) {
            const auto& line = sides.after[i];
            rows[i].afterNumber = stateNumber(line);
            rows[i].after = stateLineText(line);
            rows[i].isNew = line.isChanged;
            spoken << (line.isChanged ? BackendRows::tr("New: %1") : BackendRows::tr("After: %1"))
                          .arg(rows[i].after.trimmed());
        }
        rows[i].spokenText = spoken.join(QStringLiteral(". "));
    }
    return rows;
}

}  // namespace app
