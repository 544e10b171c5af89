#include "Tarnwick_Brell/Trackers/TrackedRecords.h"

#include <algorithm>
#include <set>
#include <utility>

#include "NewsroomKit/Court/CaseSearch.h"
#include "NewsroomKit/Court/DocketAPI.h"
#include "NewsroomKit/Court/DocketSignals.h"
#include "NewsroomKit/Filings/FilingCompany.h"
#include "NewsroomKit/PressWires/PressAPI.h"
#include "NewsroomKit/PressWires/PressSignals.h"
#include "NewsroomKit/PressWires/WireFeeds.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/SettingKey.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"
#include "Tarnwick_Brell/Trackers/TrackerCache.h"

namespace app {

using kit::CourtCase;
using kit::DocketEntry;
using kit::DocketSheet;
using kit::HTTPClient;
using kit::Instant;
using kit::PressCompany;
using kit::PressRelease;
using kit::PressSheet;

namespace {

template <class Record>
std::optional<Record> recordIn(const HistoricRecord& row) {
    try {
        return kit::decode<Record>(kit::parseJSON(row.record));
    } catch (const kit::RecordError&) {
        return std::nullopt;
    }
}

std::vector<DocketEntry> knownEntries(LocalStore& store, const std::string& feed) {
    std::vector<DocketEntry> known;
    for (const auto& row : store.docketEntries().ofFeed(feed)) {
        if (auto entry = recordIn<DocketEntry>(row)) known.push_back(std::move(*entry));
    }
    return known;
}

/// What other feeds have listed, if that is needed to see what is new.
std::vector<DocketEntry> entriesElsewhere(LocalStore& store, const std::string& feed,
                                          const std::vector<kit::DocketChange>& changes) {
    constexpr std::size_t most = 5'000;
    std::vector<DocketEntry> entries;
    if (changes.empty()) return entries;
    for (const auto& row : store.docketEntries().newest(most)) {
        if (row.feed == feed) continue;
        if (auto entry = recordIn<DocketEntry>(row)) entries.push_back(std::move(*entry));
    }
    return entries;
}

/// Where a sheet comes from.
struct FeedOrigin {
    std::string name;  ///< of the tracked file
    std::string address;
};

/// Nothing is told of the first look at a feed.
void recordDockets(LocalStore& store, const FeedOrigin& feed, bool isFirst,
                   const DocketSheet& sheet, Instant now) {
    const auto known = knownEntries(store, feed.name);
    const auto changes = kit::docketChanges(known, sheet);
    for (const auto& change : changes) {
        const auto& entry = change.entry;
        store.docketEntries().put({.key = entry.key,
                                   .feed = feed.name,
                                   .happenedAt = entry.date,
                                   .firstSeen = now,
                                   .record = boost::json::serialize(kit::encode(entry))});
    }
    if (isFirst && known.empty()) return;
    const auto news = kit::newBeside(changes, known, entriesElsewhere(store, feed.name, changes));
    store.signalLog().add(kit::signalsOf(news, feed.address, now));
}

/// The sheet was made at the same moment as the one before.
bool isSameEdition(const std::optional<DocketSheet>& before, const DocketSheet& sheet) {
    return before && before->built && before->built == sheet.built;
}

DocketSheet casesOfApple(DocketSheet sheet) {
    std::erase_if(sheet.entries, [](const DocketEntry& entry) {
        return !kit::namesApple(entry.caseName.value_or(""));
    });
    return sheet;
}

/// Those whose filings are followed, and the companies on the board that was last fetched, which
/// may never have been.
std::vector<PressCompany> followedCompanies(LocalStore& store, const std::string& serviceAddress) {
    std::vector<PressCompany> companies;
    for (const auto& company : kit::filingCompanies)
        companies.push_back(
            {.symbol = std::string(company.symbol), .name = std::string(company.name)});
    const auto board = TrackerCache(store).latest(TrackedFiles{serviceAddress}.board());
    for (const auto& quote : board.value_or(std::vector<kit::BoardQuote>())) {
        companies.push_back({.symbol = quote.symbol, .name = quote.name});
    }
    return companies;
}

/// Nothing is told of the first look at a feed, nor of releases that were in the last answer
/// before their company was followed.
void recordReleases(LocalStore& store, const FeedOrigin& feed,
                    const std::optional<PressSheet>& before,
                    const std::vector<PressRelease>& releases, Instant now) {
    std::set<std::string> listed;
    if (before) {
        for (const auto& release : before->releases) listed.insert(kit::releaseKey(release));
    }
    std::vector<PressRelease> news;
    for (const auto& release : releases) {
        const auto key = kit::releaseKey(release);
        if (store.pressReleases().has(key)) continue;
        store.pressReleases().put({.key = key,
                                   .feed = feed.name,
                                   .happenedAt = release.published,
                                   .firstSeen = now,
                                   .record = boost::json::serialize(kit::encode(release))});
        if (before && !listed.contains(key)) news.push_back(release);
    }
    store.signalLog().add(kit::signalsOf(news, feed.address, now));
}

void recordCases(LocalStore& store, const FeedOrigin& feed, bool isFirst, const DocketSheet& sheet,
                 Instant now) {
    std::vector<CourtCase> added;
    for (const auto& found : sheet.cases) {
        const auto key = std::to_string(found.docket);
        if (!kit::hasAppleAsParty(found) || store.courtCases().has(key)) continue;
        store.courtCases().put({.key = key,
                                .feed = feed.name,
                                .happenedAt = found.filed,
                                .firstSeen = now,
                                .record = boost::json::serialize(kit::encode(found))});
        added.push_back(found);
    }
    if (!isFirst) store.signalLog().add(kit::signalsOf(added, feed.address, now));
}

TrackedFile<PressSheet> pressFile(FeedOrigin origin, const std::string& title) {
    return {.tracker = Tracker::press,
            .name = origin.name,
            .title = title,
            .address = origin.address,
            .fetch = [address = origin.address](
                         HTTPClient& http) { return kit::PressAPI{http}.sheet(address); },
            .parse = kit::PressAPI::parse};
}

TrackedFile<DocketSheet> sheetFile(FeedOrigin origin, const std::string& title) {
    return {.tracker = Tracker::court,
            .name = origin.name,
            .title = title,
            .address = origin.address,
            .fetch = [address = origin.address](
                         HTTPClient& http) { return kit::DocketAPI{http}.sheet(address); },
            .parse = kit::DocketAPI::parse};
}

}  // namespace

TrackedFile<DocketSheet> docketFile(std::int64_t docket) {
    const auto number = std::to_string(docket);
    const FeedOrigin origin{std::string(kDocketPrefix) + number,
                            kit::DocketAPI::feedAddress(docket)};
    auto file = sheetFile(origin, "The docket " + number);
    file.emptyAnswer = EmptyAnswer::refusedAfterItems;
    file.isEmpty = [](const DocketSheet& sheet) { return sheet.entries.empty(); };
    file.notFoundText = "CourtListener knows no such docket.";
    file.pausesWhenForbidden = true;
    file.record = [origin](LocalStore& store, const auto& before, const auto& sheet, Instant now) {
        recordDockets(store, origin, !before, sheet, now);
    };
    return file;
}

TrackedFile<DocketSheet> courtFeedFile(const AddedFeed& feed) {
    const FeedOrigin origin{"courtFeed/" + feed.address, feed.address};
    auto file = sheetFile(origin, "The feed of " + (feed.name.empty() ? feed.address : feed.name));
    file.record = [origin](LocalStore& store, const auto& before, const auto& sheet, Instant now) {
        if (isSameEdition(before, sheet)) return;
        recordDockets(store, origin, !before, casesOfApple(sheet), now);
    };
    return file;
}

TrackedFile<DocketSheet> caseSearchFile(const std::string& token) {
    const FeedOrigin origin{"court/search", kit::DocketAPI::searchAddress()};
    auto file = sheetFile(origin, "The search for new cases");
    file.fetch = [token](HTTPClient& http) { return kit::DocketAPI{http}.search(token); };
    file.leastInterval = std::chrono::minutes(30);
    file.pausesWhenForbidden = true;
    file.credential = kit::storyID(token);
    file.refusedText = "CourtListener refuses the token. It isn't asked again until the setting " +
                       std::string(SettingKey::kCourtListenerToken) + " has another one.";
    file.record = [origin](LocalStore& store, const auto& before, const auto& sheet, Instant now) {
        recordCases(store, origin, !before, sheet, now);
    };
    return file;
}

std::vector<TrackedFile<DocketSheet>> docketFiles(const FollowedFeeds& followed) {
    std::vector<TrackedFile<DocketSheet>> files;
    for (const auto& one : followed.cases()) files.push_back(docketFile(one.docket));
    for (const auto& feed : followed.courtFeeds()) files.push_back(courtFeedFile(feed));
    if (const auto token = followed.courtListenerToken(); !token.empty())
        files.push_back(caseSearchFile(token));
    return files;
}

std::vector<TrackedFile<PressSheet>> pressFiles(const FollowedFeeds& followed,
                                                const std::string& serviceAddress) {
    std::vector<TrackedFile<PressSheet>> files;
    for (const auto& wire : kit::kWireFeeds) {
        const FeedOrigin origin{"press/" + std::string(wire.id), std::string(wire.address)};
        auto file = pressFile(origin, std::string(wire.name));
        file.record = [origin, serviceAddress](LocalStore& store, const auto& before,
                                               const auto& sheet, Instant now) {
            const auto companies = followedCompanies(store, serviceAddress);
            auto releases = sheet.releases;
            std::erase_if(releases, [&](const PressRelease& release) {
                return !kit::isOfCompany(release, companies);
            });
            recordReleases(store, origin, before, releases, now);
        };
        files.push_back(std::move(file));
    }
    for (const auto& feed : followed.pressFeeds()) {
        const FeedOrigin origin{"pressFeed/" + feed.address, feed.address};
        auto file =
            pressFile(origin, "The feed of " + (feed.name.empty() ? feed.address : feed.name));
        file.record = [origin, name = feed.name](LocalStore& store, const auto& before,
                                                 const auto& sheet, Instant now) {
            auto releases = sheet.releases;
            for (auto& release : releases) {
                if (!release.company && !name.empty()) release.company = name;
            }
            recordReleases(store, origin, before, releases, now);
        };
        files.push_back(std::move(file));
    }
    return files;
}

std::vector<SeenEntry> seenEntries(const std::vector<HistoricRecord>& records) {
    std::vector<SeenEntry> seen;
    for (const auto& row : records) {
        if (auto entry = recordIn<DocketEntry>(row))
            seen.push_back({std::move(*entry), row.feed, row.firstSeen});
    }
    return seen;
}

std::vector<SeenCase> seenCases(const std::vector<HistoricRecord>& records) {
    std::vector<SeenCase> seen;
    for (const auto& row : records) {
        if (auto found = recordIn<CourtCase>(row))
            seen.push_back({std::move(*found), row.firstSeen});
    }
    return seen;
}

std::vector<SeenRelease> seenReleases(const std::vector<HistoricRecord>& records) {
    std::vector<SeenRelease> seen;
    for (const auto& row : records) {
        if (auto release = recordIn<PressRelease>(row))
            seen.push_back({std::move(*release), row.feed, row.firstSeen});
    }
    return seen;
}

}  // namespace app
