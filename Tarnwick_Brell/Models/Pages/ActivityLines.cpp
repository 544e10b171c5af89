#include "Tarnwick_Brell/Models/Pages/ActivityLines.h"

#include <algorithm>
#include <deque>

#include <QCoreApplication>
#include <QLocale>

#include "NewsroomKit/Alerts/AlertEvent.h"
#include "Tarnwick_Brell/Models/Alerts/AlertOutcomeText.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"

namespace app {

namespace {

/// Of very many stories in an hour only the newest are looked through.
constexpr std::size_t kMostWireStories = 2'000;

struct ActivityText {
    Q_DECLARE_TR_FUNCTIONS(ActivityText)
};

constexpr int kSubjectCharacters = 60;
constexpr int kChangeCharacters = 80;
// Sources and the desk rarely agree to the minute.
constexpr std::chrono::minutes kSameTime{2};

QString sourceTime(const kit::Signal& signal, kit::Instant now) {
    if (!signal.happenedAt) return {};
    if (signal.dayOnly)
        return ActivityText::tr("dated %1").arg(namedDayText(*signal.happenedAt, now));
    if (abs(signal.seenAt - *signal.happenedAt) < kSameTime) return {};
    return ActivityText::tr("source’s time %1").arg(momentText(*signal.happenedAt, now));
}

QString weightBadge(const kit::Signal& signal) {
    return signal.weight == kit::SignalWeight::major ? labelText(label(signal.weight)) : QString();
}

ActivityLine lineOf(const kit::ActivityRow& row, const std::vector<StoredAlert>& alerts,
                    kit::Instant now) {
    const auto& signal = row.logged.signal;
    ActivityLine line{.time = clockText(signal.seenAt),
                      .symbol = plainText(symbol(signal.kind)),
                      .title = titleText(row.title, kTitleCharacters),
                      .detail = signalDetail(row, now),
                      .badge = weightBadge(signal),
                      .isNew = row.isNew,
                      .link = openableLink(signal.link.value_or(std::string()))};
    const auto alert = std::ranges::find(alerts, kit::alertKey(signal), &StoredAlert::event);
    if (alert != alerts.end()) {
        line.told = alertOutcomeText(*alert);
        line.toldSymbol = alertOutcomeSymbol(alert->outcome);
    }
    line.spokenText =
        spokenRow({row.isNew ? ActivityText::tr("New") : QString(), line.title, line.badge,
                   line.detail, line.told, momentText(signal.seenAt, now)});
    return line;
}

ActivityWireLine storyLine(const kit::StoryMention& story, bool isShared) {
    ActivityWireLine line{.time = clockText(story.publishedAt),
                          .outlet = titleText(story.outlet, kSubjectCharacters),
                          .title = titleText(story.title, kTitleCharacters),
                          .sourcing = StorySourcing::of(story.sourcing),
                          .sourcingLabel = sourcingText(story.sourcing),
                          .storyID = plainText(story.storyID),
                          .isShared = isShared};
    line.spokenText = spokenRow({line.time, line.outlet, line.title, line.sourcingLabel});
    return line;
}

}  // namespace

QString signalKindText(kit::SignalKind kind) { return labelText(label(kind)); }

QString placeOf(kit::SignalKind kind) {
    using enum kit::SignalKind;
    switch (kind) {
        case release: return QStringLiteral("tracker:software");
        case service: return QStringLiteral("tracker:status");
        case signing: return QStringLiteral("tracker:signing");
        case update: return QStringLiteral("tracker:updates");
        case chart: return QStringLiteral("tracker:charts");
        case price: return QStringLiteral("tracker:markets");
        case filing:
        case insiderTrade:
        case docket:
        case pressRelease: return QStringLiteral("tracker:records");
        case page: return QStringLiteral("tracker:pages");
        case backend: return QStringLiteral("tracker:backend");
    }
    return {};
}

QString signalDetail(const kit::ActivityRow& row, kit::Instant now) {
    const auto& signal = row.logged.signal;
    QStringList parts{signalKindText(signal.kind), sourceTime(signal, now)};
    if (row.devices.size() > 1) {
        parts << ActivityText::tr("%n devices", nullptr, static_cast<int>(row.devices.size()));
    } else {
        parts << titleText(signal.detail, kSubjectCharacters);
    }
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" · "));
}

QString signalChange(const kit::Signal& signal) {
    const auto text = [&](std::string_view key) {
        const auto* value = signal.evidence.if_contains(key);
        if (!value) return QString();
        if (value->is_string())
            return titleText(std::string(value->get_string()), kChangeCharacters);
        return value->is_int64() ? QLocale().toString(value->get_int64()) : QString();
    };
    const auto before = text("before"), after = text("after");
    return before.isEmpty() || after.isEmpty() ? QString()
                                               : ActivityText::tr("%1 → %2").arg(before, after);
}

std::vector<ActivityLine> activityLines(const std::vector<kit::ActivityRow>& rows,
                                        const std::vector<StoredAlert>& alerts, kit::Instant now) {
    std::vector<ActivityLine> lines;
    std::size_t top = 0;
    int count = 0;
    for (const auto& row : rows) {
        const auto seen = row.logged.signal.seenAt;
        const auto day = dayHeadingText(seen, now);
        lines.push_back(lineOf(row, alerts, now));
        if (lines.size() == 1 || day != lines[top].heading) {
            top = lines.size() - 1;
            count = 0;
            lines[top].heading = day;
        }
        lines[top].headingFact = QLocale().toString(++count);
    }
    return lines;
}

std::vector<ActivityWireLine> activityWireLines(const kit::ActivityWire& wire,
                                                const kit::ActivityRow& chosen) {
    std::vector<ActivityWireLine> lines;
    const auto& signal = chosen.logged.signal;
    for (const auto& story : wire.shared) lines.push_back(storyLine(story, true));
    const auto place =
        std::ranges::upper_bound(wire.shared, signal.seenAt, {}, &kit::StoryMention::publishedAt);
    ActivityWireLine own{.time = clockText(signal.seenAt),
                         .outlet = ActivityText::tr("The desk"),
                         .title = titleText(chosen.title, kTitleCharacters),
                         .isSignal = true,
                         .isShared = true};
    own.spokenText = spokenRow({own.time, own.outlet, own.title});
    lines.insert(lines.begin() + (place - wire.shared.begin()), std::move(own));
    for (const auto& story : wire.others) {
        lines.push_back(storyLine(story, false));
        if (&story == &wire.others.front())
            lines.back().heading = ActivityText::tr("Other stories");
    }
    return lines;
}

QString wireLeadText(const kit::ActivityWire& wire) {
    if (!wire.lead) return ActivityText::tr("No story of these two hours shares its words.");
    if (*wire.lead >= std::chrono::minutes(1))
        return ActivityText::tr("The desk saw it %1 before the first story.")
            .arg(spanText(*wire.lead));
    if (*wire.lead <= -std::chrono::minutes(1))
        return ActivityText::tr("The first story came %1 before the desk saw it.")
            .arg(spanText(-*wire.lead));
    return ActivityText::tr("The desk and the first story had it in the same minute.");
}

kit::ActivityWire wireOf(const NewsDesk& news, const kit::Signal& signal) {
    const auto& wire = news.stories();
    std::deque<kit::Story> stories;  // A deque does not move them.
    std::vector<kit::PanelStory> mentioned;
    const auto last = firstStoryNumber(signal.seenAt + kit::kWireAround + std::chrono::seconds(1));
    for (auto place = wire.firstPlaceBelow(last);
         place < wire.size() && stories.size() < kMostWireStories; ++place) {
        const auto& packed = wire[place];
        if (packed.publishedAt() < signal.seenAt - kit::kWireAround) break;
        stories.push_back(packed.unpacked().story);
        mentioned.push_back(
            {.story = &stories.back(), .firstSeen = packed.firstSeen(), .isRead = packed.isRead()});
    }
    return kit::wireAround(signal, mentioned);
}

}  // namespace app
