#include "Tarnwick_Brell/Models/Pages/SourceTableText.h"

#include <algorithm>
#include <array>
#include <chrono>

#include <QCoreApplication>
#include <QLocale>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

/// In seconds. Fetching more often than the desk's pass is not possible.
constexpr std::array kIntervals{0.0, 900.0, 1800.0, 3600.0, 10800.0, 43200.0, 86400.0};

struct SourceTableWords {
    Q_DECLARE_TR_FUNCTIONS(SourceTable)
};

SourceMark::Value sourceMarkOf(const SourceLine& line) {
    if (!line.isOn) return SourceMark::Off;
    switch (stateOf(line.status, line.health)) {
        case SourceState::fresh: return SourceMark::Fresh;
        case SourceState::unchanged: return SourceMark::Unchanged;
        case SourceState::failing: return SourceMark::Failing;
        case SourceState::never: return SourceMark::Never;
    }
    return SourceMark::Never;
}

QString sourceLatency(const SourceLine& line) {
    if (!line.health.latency) return {};
    return SourceTableWords::tr("%1 s").arg(
        QLocale().toString(static_cast<double>(*line.health.latency) / 1e3, 'f', 1));
}

QString sourceSize(const SourceLine& line) {
    if (!line.health.bytes) return {};
    return QLocale().formattedDataSize(*line.health.bytes, 0, QLocale::DataSizeSIFormat);
}

QString sourceNextTry(const SourceLine& line, kit::Instant now) {
    if (!line.isOn) return {};
    return line.nextTry ? momentText(*line.nextTry, now) : SourceTableWords::tr("Next pass");
}

QString sourceGroup(const SourceLine& line) { return labelText(label(line.source.category)); }

QString sourceFeed(const SourceLine& line) {
    return titleText(kit::maskedSecrets(line.source.feedURL), kTitleCharacters);
}

QStringList sourceFacts(const SourceLine& line, kit::Instant now) {
    QStringList facts{SourceTableWords::tr("Feed: %1").arg(sourceFeed(line))};
    if (line.status.lastAttempt) {
        facts
            << SourceTableWords::tr("Last tried %1").arg(momentText(*line.status.lastAttempt, now));
    }
    if (line.health.newestStory) {
        facts << SourceTableWords::tr("Newest story %1")
                     .arg(momentText(*line.health.newestStory, now));
    }
    if (line.health.movedTo) {
        facts << SourceTableWords::tr("Its feed has moved permanently to %1")
                     .arg(titleText(kit::maskedSecrets(*line.health.movedTo), kTitleCharacters));
    }
    return facts;
}

QString intervalText(double seconds) {
    if (seconds <= 0) return SourceTableWords::tr("With every pass");
    const auto minutes = static_cast<int>(seconds / 60);
    if (minutes < 60) return SourceTableWords::tr("Every %n minutes", nullptr, minutes);
    return SourceTableWords::tr("Every %n hours", nullptr, minutes / 60);
}

void addIntervals(SourceDetail& detail, const SourceLine& line) {
    const auto& set = line.options.minimumInterval;
    detail.intervals << (set ? SourceTableWords::tr("As usual")
                             : intervalText(line.source.minimumInterval));
    for (const auto seconds : kIntervals) {
        detail.intervals << intervalText(seconds);
        if (set == seconds) detail.interval = static_cast<int>(detail.intervals.size()) - 1;
    }
}

/// The numbers that DayCells draws: unknown, low, middle, tall.
int cellKind(TrySpan::Kind kind) {
    switch (kind) {
        case TrySpan::Kind::none: return 0;
        case TrySpan::Kind::unchanged:
        case TrySpan::Kind::full: return 1;
        case TrySpan::Kind::news: return 3;
        case TrySpan::Kind::failed: return 4;
    }
    return 0;
}

/// "18 Nov 14:00 to 16:00: 24 fetches, 2 failed, 5 new stories"
QString trySpanText(const TrySpan& span, kit::Instant now) {
    const auto time = SourceTableWords::tr("%1 to %2")
                          .arg(momentText(span.from, now), clockText(span.from + kTrySpan));
    if (span.tries == 0) return SourceTableWords::tr("%1: not fetched").arg(time);
    auto text =
        SourceTableWords::tr("%1: %n fetches", nullptr, static_cast<int>(span.tries)).arg(time);
    if (span.failed > 0) text += SourceTableWords::tr(", %1 failed").arg(span.failed);
    if (span.added > 0)
        text += SourceTableWords::tr(", %n new stories", nullptr, static_cast<int>(span.added));
    return text;
}

}  // namespace

QString sourceStateText(const SourceLine& line, kit::Instant now) {
    if (!line.isOn) return SourceTableWords::tr("Switched off");
    if (line.status.lastError) {
        const auto reason = titleText(*line.status.lastError, kTitleCharacters);
        if (!line.health.failingSince) return reason;
        return SourceTableWords::tr("%1 Since %2.")
            .arg(reason, momentText(*line.health.failingSince, now));
    }
    switch (stateOf(line.status, line.health)) {
        case SourceState::never: return SourceTableWords::tr("Never fetched");
        case SourceState::unchanged: return SourceTableWords::tr("Unchanged");
        default: break;
    }
    if (line.status.storyCount > 0) {
        return SourceTableWords::tr("Fetched, %n stories", nullptr,
                                    static_cast<int>(line.status.storyCount));
    }
    return line.source.onlyApple ? SourceTableWords::tr("No stories about Apple")
                                 : SourceTableWords::tr("No stories in it");
}

SourceTableRow sourceTableRow(const SourceLine& line, kit::Instant now) {
    SourceTableRow row{.id = plainText(line.source.id),
                       .name = titleText(line.source.name),
                       .mark = sourceMarkOf(line),
                       .isOn = line.isOn,
                       .isFailing = line.isFailing(),
                       .group = sourceGroup(line),
                       .nextTry = sourceNextTry(line, now),
                       .stories = QLocale().toString(static_cast<qlonglong>(line.recentStories)),
                       .latency = sourceLatency(line),
                       .size = sourceSize(line),
                       .stateText = sourceStateText(line, now)};
    if (line.status.lastSuccess) row.lastSuccess = momentText(*line.status.lastSuccess, now);
    row.spokenText = SourceTableWords::tr("%1, %2, %3").arg(row.name, row.group, row.stateText);
    return row;
}

SourceDetail sourceDetail(const SourceLine& line, const TryHistory& history, kit::Instant now) {
    SourceDetail detail{.id = plainText(line.source.id),
                        .name = titleText(line.source.name),
                        .isOwn = line.isOwn(),
                        .onlyApple = line.source.onlyApple,
                        .notInAll = line.options.notInAll,
                        .stateText = sourceStateText(line, now),
                        .facts = sourceFacts(line, now),
                        .feedLink = openableLink(line.source.feedURL),
                        .siteLink = openableLink(line.source.siteURL)};
    addIntervals(detail, line);
    for (const auto& span : history.spans) {
        detail.spans << cellKind(span.kind);
        detail.spanTexts << trySpanText(span, now);
    }
    detail.triesText = history.tries == 0 ? SourceTableWords::tr("Not fetched")
                                          : SourceTableWords::tr("%1 of %n fetches failed", nullptr,
                                                                 static_cast<int>(history.tries))
                                                .arg(history.failed);
    return detail;
}

std::vector<SourceFailureRow> sourceFailures(const TryHistory& history, std::size_t most,
                                             kit::Instant now) {
    std::vector<SourceFailureRow> rows;
    for (const auto& run : history.failures) {
        if (rows.size() == most) break;
        const auto reason = titleText(run.reason, kTitleCharacters);
        rows.push_back({.time = momentText(run.from, now),
                        .reason = run.tries == 1
                                      ? reason
                                      : SourceTableWords::tr("%n times until %2: %1", nullptr,
                                                             static_cast<int>(run.tries))
                                            .arg(reason, momentText(run.to, now))});
    }
    return rows;
}

QString sourcesFootText(const std::vector<SourceLine>& lines, kit::Instant now) {
    const auto on = std::ranges::count_if(lines, &SourceLine::isOn);
    const auto failing = std::ranges::count_if(lines, &SourceLine::isFailing);
    const auto answered = std::ranges::count_if(lines, [&](const auto& line) {
        return line.status.lastSuccess && now - *line.status.lastSuccess <= std::chrono::hours(1);
    });
    return SourceTableWords::tr("%n sources", nullptr, static_cast<int>(lines.size())) +
           SourceTableWords::tr(", %1 on, %2 failing · %3 answered in the last hour")
               .arg(on)
               .arg(failing)
               .arg(answered);
}

std::optional<double> sourceInterval(int choice) {
    if (choice <= 0 || choice > static_cast<int>(kIntervals.size())) return std::nullopt;
    return kIntervals[static_cast<std::size_t>(choice - 1)];
}

QString sourceReportText(const SourceLine& line, kit::Instant now) {
    auto text = SourceTableWords::tr("%1 (%2): %3")
                    .arg(titleText(line.source.name), sourceFeed(line), sourceStateText(line, now));
    if (line.status.lastSuccess) {
        text +=
            u' ' +
            SourceTableWords::tr("Last success %1.").arg(momentText(*line.status.lastSuccess, now));
    }
    return text;
}

}  // namespace app
