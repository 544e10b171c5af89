#include "Tarnwick_Brell/Models/Pages/SourceTableText.h"

#include <QCoreApplication>
#include <QLocale>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

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

SourceDetail sourceDetail(const SourceLine& line, kit::Instant now) {
    SourceDetail detail{.id = plainText(line.source.id),
                        .name = titleText(line.source.name),
                        .isOwn = line.isOwn(),
                        .isFailing = line.isFailing(),
                        .stateText = sourceStateText(line, now),
                        .feedLink = openableLink(line.source.feedURL),
                        .siteLink = openableLink(line.source.siteURL)};
    auto& facts = detail.facts;
    facts << SourceTableWords::tr("Feed: %1").arg(sourceFeed(line));
    if (line.status.lastAttempt) {
        facts
            << SourceTableWords::tr("Last tried %1").arg(momentText(*line.status.lastAttempt, now));
    }
    if (line.status.lastSuccess) {
        facts << SourceTableWords::tr("Last success %1")
                     .arg(momentText(*line.status.lastSuccess, now));
    }
    if (line.health.newestStory) {
        facts << SourceTableWords::tr("Newest story %1")
                     .arg(momentText(*line.health.newestStory, now));
    }
    if (line.source.minimumInterval > 0) {
        facts << SourceTableWords::tr("At most every %n minutes", nullptr,
                                      static_cast<int>(line.source.minimumInterval / 60));
    }
    if (line.source.onlyApple) facts << SourceTableWords::tr("Only stories about Apple are kept");
    if (line.health.movedTo) {
        facts << SourceTableWords::tr("Its feed has moved permanently to %1")
                     .arg(titleText(kit::maskedSecrets(*line.health.movedTo), kTitleCharacters));
    }
    return detail;
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
