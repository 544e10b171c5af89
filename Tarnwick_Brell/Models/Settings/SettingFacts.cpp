#include "Tarnwick_Brell/Models/Settings/SettingFacts.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSysInfo>

#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Alerts/QuietSettings.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Alerts/RuleChanges.h"
#include "Tarnwick_Brell/Models/Settings/ContactedHosts.h"
#include "Tarnwick_Brell/Models/Settings/LibraryStatus.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace {

constexpr int kLongestPath = 400;

struct SettingFacts {
    Q_DECLARE_TR_FUNCTIONS(SettingFacts)
};

QString trackerName(Tracker tracker) {
    switch (tracker) {
        case Tracker::status: return SettingFacts::tr("service status");
        case Tracker::releases: return SettingFacts::tr("releases");
        case Tracker::quotes: return SettingFacts::tr("quotes");
        case Tracker::board: return SettingFacts::tr("the board of quotes");
        case Tracker::events: return SettingFacts::tr("the calendar");
        case Tracker::signing: return SettingFacts::tr("firmware signing");
        case Tracker::updates: return SettingFacts::tr("the update catalogue");
        case Tracker::charts: return SettingFacts::tr("App Store charts");
        case Tracker::filings: return SettingFacts::tr("filings at the SEC");
        case Tracker::court: return SettingFacts::tr("court dockets");
        case Tracker::press: return SettingFacts::tr("press releases");
        case Tracker::backend: return SettingFacts::tr("Apple's public files");
        case Tracker::pages: return SettingFacts::tr("Followed pages");
    }
    return {};
}

QString reasonText(const ContactedHost& host) {
    QStringList reasons;
    if (host.sources > 0)
        reasons << SettingFacts::tr("%n sources", nullptr, static_cast<int>(host.sources));
    for (const auto tracker : host.trackers) reasons << trackerName(tracker);
    return reasons.join(QStringLiteral(", "));
}

QString contactText(const ContactedHost& host, kit::Instant now) {
    auto text =
        SettingFacts::tr("%1 · every %n minutes", nullptr, static_cast<int>(host.interval.count()))
            .arg(reasonText(host));
    if (host.fetches > 0)
        text += SettingFacts::tr(" · fetched %n times in 7 days", nullptr,
                                 static_cast<int>(host.fetches));
    if (host.lastAsked)
        text = SettingFacts::tr("%1 · last asked %2").arg(text, momentText(*host.lastAsked, now));
    return text;
}

SettingRow fact(const QString& title, const QString& text) {
    return {.title = title, .meaning = text, .control = SettingControl::Fact};
}

QString pathText(const std::filesystem::path& path) {
    return titleText(path.string(), kLongestPath);
}

/// "Last told today 15:26, 11 matches in 14 days"
QString toldText(const AlertHistory::RuleCount& count, kit::Instant now) {
    const auto matches =
        SettingFacts::tr("%n matches in 14 days", nullptr, static_cast<int>(count.matches));
    if (!count.lastTold) return SettingFacts::tr("Never told yet, %1").arg(matches);
    return SettingFacts::tr("Last told %1, %2").arg(momentText(*count.lastTold, now), matches);
}

SettingRow workRow(const LibraryWork& work, bool isAsked) {
    const bool repairs = work.kind == LibraryWork::Kind::repair;
    SettingRow row{.control = SettingControl::Button, .work = work};
    if (repairs)
        row.action = isAsked ? SettingFacts::tr("Repair now") : SettingFacts::tr("Repair…");
    else
        row.action = isAsked ? SettingFacts::tr("Restore now") : SettingFacts::tr("Restore…");
    return row;
}

SettingRow repairRow(const QString& kept, const std::optional<LibraryWork>& asked) {
    const LibraryWork work{.kind = LibraryWork::Kind::repair, .isConfirmed = true};
    auto row = workRow(work, asked == work);
    row.title = SettingFacts::tr("Repair");
    row.meaning = asked == work ? SettingFacts::tr(
                                      "The window closes and opens again with the "
                                      "repaired library.")
                                : kept;
    return row;
}

SettingRow backupRow(const Backup& backup, const std::optional<LibraryWork>& asked,
                     kit::Instant now) {
    const LibraryWork work{.kind = LibraryWork::Kind::restore, .backup = backup.file};
    auto row = workRow(work, asked == work);
    row.title = SettingFacts::tr("Backup, %1").arg(momentText(backup.made, now));
    if (asked == work) {
        row.meaning = SettingFacts::tr(
            "The window closes and opens again with this backup. The "
            "present library stays beside it under another name.");
    } else {
        row.meaning = backup.beforeMigration ? SettingFacts::tr("Made before an upgrade.")
                                             : pathText(backup.file.filename());
    }
    return row;
}

}  // namespace

QList<qreal> quietBand(const Defaults& defaults, kit::Instant now) {
    const auto quiet = quietOf(defaults);
    if (!quiet.hours) return {};
    const auto part = [](auto time) {
        return std::chrono::duration<qreal>(time) / std::chrono::hours(24);
    };
    const auto shown = quiet.hours->zone.shownAt(now);
    const auto sinceMidnight = shown - std::chrono::floor<std::chrono::days>(shown);
    return {part(quiet.hours->from), part(quiet.hours->to), part(sinceMidnight)};
}

std::vector<SettingRow> alertRows(const DeskStores& stores) {
    std::vector<SettingRow> rows;
    const auto now = stores.clock();
    const auto& counts = stores.alerts.log().counts;
    for (const auto& entry : stores.alerts.rules().entries()) {
        SettingRow row{.title = titleText(entry.name),
                       .control = SettingControl::Switch,
                       .isOn = entry.value && entry.value->on,
                       .ruleID = entry.id};
        if (entry.value) {
            row.meaning = ruleText(stores, *entry.value);
            row.action = SettingFacts::tr("Edit…");
            row.sheet = QStringLiteral("alert-rule:") + QString::fromStdString(entry.id);
        } else {
            row.meaning = SettingFacts::tr("It can't be read and is kept as it is.");
            row.control = SettingControl::Fact;
        }
        const auto count = counts.find(entry.id);
        row.standard =
            toldText(count == counts.end() ? AlertHistory::RuleCount() : count->second, now);
        rows.push_back(std::move(row));
    }
    rows.push_back({.title = SettingFacts::tr("Alert rules"),
                    .meaning = SettingFacts::tr("Be told of stories, of what is logged, or of a "
                                                "price, and try it on the past first."),
                    .control = SettingControl::Button,
                    .action = SettingFacts::tr("New rule…"),
                    .sheet = QStringLiteral("alert-rule:")});
    rows.push_back({.title = SettingFacts::tr("What was told"),
                    .meaning = SettingFacts::tr("What was told in the last 90 days, what was not, "
                                                "and by which rule."),
                    .control = SettingControl::Button,
                    .action = SettingFacts::tr("History…"),
                    .sheet = QStringLiteral("alert-history")});
    for (const auto& entry : stores.newsrooms.beats().entries()) {
        if (!entry.value) continue;
        rows.push_back({.title = titleText(entry.name),
                        .meaning = SettingFacts::tr("Notify of new stories of this beat."),
                        .control = SettingControl::Switch,
                        .isOn = entry.value->alerts,
                        .beatID = entry.id});
    }
    return rows;
}

std::vector<SettingRow> libraryRows(const LibraryStatus& library,
                                    const std::optional<LibraryWork>& asked, kit::Instant now) {
    std::vector<SettingRow> rows;
    if (!library.progress().isEmpty())
        rows.push_back(fact(SettingFacts::tr("Under way"), library.progress()));
    if (!library.outcome().isEmpty())
        rows.push_back(fact(SettingFacts::tr("Result"), library.outcome()));
    if (!library.repair().isEmpty()) rows.push_back(repairRow(library.repair(), asked));
    const auto unread = SettingFacts::tr("Not read yet");
    rows.push_back(fact(SettingFacts::tr("Where"), pathText(library.library())));
    rows.push_back(fact(SettingFacts::tr("Size"),
                        library.size()
                            ? QLocale().formattedDataSize(static_cast<qint64>(*library.size()), 1,
                                                          QLocale::DataSizeSIFormat)
                            : unread));
    rows.push_back(fact(SettingFacts::tr("Stories"),
                        library.stories()
                            ? QLocale().toString(static_cast<qulonglong>(*library.stories()))
                            : unread));
    rows.push_back(fact(SettingFacts::tr("Last check"), library.lastCheck()
                                                            ? momentText(*library.lastCheck(), now)
                                                            : SettingFacts::tr("Never")));
    if (library.backups().empty()) {
        rows.push_back(fact(SettingFacts::tr("Backups"),
                            SettingFacts::tr("None yet. One is made every day.")));
    }
    for (const auto& backup : library.backups()) rows.push_back(backupRow(backup, asked, now));
    return rows;
}

std::vector<SettingRow> privacyFacts(const DeskStores& stores, const FetchCounts& fetches) {
    std::vector<SettingRow> facts;
    facts.push_back(
        fact(SettingFacts::tr("What is sent"),
             SettingFacts::tr("Requests for public files, without cookies or an account. "
                              "A story is looked up in the archive when you trace it.")));
    facts.push_back(
        fact(SettingFacts::tr("Pictures"),
             stores.defaults.isOn(SettingKey::kPictures)
                 ? SettingFacts::tr("On: each is fetched from the server that its feed names, "
                                    "when its story comes into view.")
                 : SettingFacts::tr("Off: no server is asked for a picture.")));
    const auto now = stores.clock();
    for (const auto& [host, contact] : contactedHosts(stores, fetches))
        facts.push_back(fact(titleText(host), contactText(contact, now)));
    facts.push_back(fact(SettingFacts::tr("Counts"),
                         SettingFacts::tr("Fetches of feeds are counted for seven days, in the "
                                          "library on this computer. Those of trackers, pictures "
                                          "and the archive are not counted.")));
    facts.push_back(
        fact(SettingFacts::tr("Settings are stored in"), pathText(stores.defaults.file())));
    return facts;
}

std::vector<SettingRow> aboutFacts() {
    return {
        fact(SettingFacts::tr("Version"), QStringLiteral("Tarnwick Brell " BRELL_VERSION)),
        fact(SettingFacts::tr("Licence"), SettingFacts::tr("Apache License 2.0")),
        fact(SettingFacts::tr("Qt"), QString::fromLatin1(qVersion())),
        fact(SettingFacts::tr("System"), QSysInfo::prettyProductName()),
        fact(SettingFacts::tr("Thanks"),
             SettingFacts::tr(
                 "To the makers of Qt, SQLite, curl, libxml2, ICU, Boost and fmt, and to "
                 "those who publish feeds.")),
    };
}

}  // namespace app
