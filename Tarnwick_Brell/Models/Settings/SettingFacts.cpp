#include "Tarnwick_Brell/Models/Settings/SettingFacts.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSysInfo>

#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Settings/ContactedHosts.h"
#include "Tarnwick_Brell/Models/Settings/LibraryStatus.h"
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

}  // namespace

std::vector<SettingRow> libraryFacts(const LibraryStatus& library, kit::Instant now) {
    std::vector<SettingRow> facts;
    facts.push_back(fact(SettingFacts::tr("Where"), pathText(library.library())));
    facts.push_back(fact(SettingFacts::tr("Size"),
                         library.size()
                             ? QLocale().formattedDataSize(static_cast<qint64>(*library.size()), 1,
                                                           QLocale::DataSizeSIFormat)
                             : SettingFacts::tr("Not read yet")));
    QStringList backups;
    for (const auto& backup : library.backups()) {
        const auto made = momentText(backup.made, now);
        backups << (backup.beforeMigration ? SettingFacts::tr("%1, before an upgrade").arg(made)
                                           : made);
    }
    facts.push_back(fact(SettingFacts::tr("Backups"),
                         backups.isEmpty() ? SettingFacts::tr("None yet. One is made every day.")
                                           : backups.join(QStringLiteral(" · "))));
    facts.push_back(
        fact(SettingFacts::tr("Restore"),
             SettingFacts::tr("With the window closed, “brell library restore” puts the "
                              "newest sound backup in the library's place and keeps the "
                              "old file.")));
    if (!library.progress().isEmpty())
        facts.push_back(fact(SettingFacts::tr("At work"), library.progress()));
    if (!library.outcome().isEmpty())
        facts.push_back(fact(SettingFacts::tr("Result"), library.outcome()));
    return facts;
}

std::vector<SettingRow> privacyFacts(const DeskStores& stores) {
    std::vector<SettingRow> facts;
    facts.push_back(
        fact(SettingFacts::tr("What is sent"),
             SettingFacts::tr("Requests for public files, without cookies or an account. "
                              "A story is looked up in the archive when you trace it. "
                              "The library does not count requests.")));
    const auto now = stores.clock();
    for (const auto& [host, contact] : contactedHosts(stores.news, stores.defaults))
        facts.push_back(fact(titleText(host), contactText(contact, now)));
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
