#include <algorithm>
#include <functional>

#include "NewsroomKit/Court/DocketAPI.h"
#include "Tarnwick_Brell/Models/Pages/CourtLines.h"
#include "Tarnwick_Brell/Models/Pages/RecordsPageModel.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

// The tab of the courts.
namespace app {

namespace {

/// What is followed of a case, so that a step can put it back.
void setFollowed(Defaults& defaults, TrackerStore& trackers, std::int64_t docket,
                 const std::optional<std::string>& note) {
    FollowedFeeds followed(defaults);
    if (note) {
        followed.follow({.docket = docket, .note = *note});
    } else {
        followed.unfollow(docket);
    }
    trackers.refresh(Tracker::court);
}

std::optional<std::string> followedNote(Defaults& defaults, std::int64_t docket) {
    for (const auto& one : FollowedFeeds(defaults).cases()) {
        if (one.docket == docket) return one.note;
    }
    return std::nullopt;
}

std::vector<kit::CourtItem> itemsIn(const std::vector<SeenEntry>& entries) {
    std::vector<kit::CourtItem> items;
    for (const auto& seen : entries)
        items.push_back({.entry = seen.entry, .firstSeen = seen.firstSeen, .feed = seen.feed});
    return items;
}

bool mentions(const kit::RowFilter& words, const kit::DocketEntry& entry) {
    return words.matches({entry.text, entry.kind, entry.number.value_or(""),
                          entry.caseName.value_or(""), entry.caseNumber.value_or("")});
}

}  // namespace

std::vector<kit::FollowedDocket> RecordsPageModel::dockets() const {
    std::vector<kit::FollowedDocket> dockets;
    const FollowedFeeds followed(stores().defaults);
    for (const auto& one : followed.cases())
        dockets.push_back(
            {.docket = one.docket, .feed = docketFile(one.docket).name, .note = one.note});
    for (const auto& feed : followed.courtFeeds())
        dockets.push_back({.feed = courtFeedFile(feed).name,
                           .name = feed.name.empty() ? feed.address : feed.name});
    return dockets;
}

void RecordsPageModel::updateCourt() {
    showFilter({}, {});
    std::vector<kit::CourtCase> cases;
    for (const auto& seen : content_.held.cases) cases.push_back(seen.found);
    const auto followed = dockets();
    caseRows_ = kit::courtCaseRows(followed, itemsIn(content_.held.entries), cases, looks_[Court]);
    newCases_ = content_.held.cases;
    std::erase_if(newCases_, [&](const SeenCase& seen) {
        return std::ranges::find(followed, seen.found.docket, &kit::FollowedDocket::docket) !=
               followed.end();
    });
    const auto words = filterOf(words_);
    if (!words.isEmpty()) {
        const auto hasEntry = [&](const std::string& feed) {
            return std::ranges::any_of(content_.held.entries, [&](const SeenEntry& seen) {
                return seen.feed == feed && mentions(words, seen.entry);
            });
        };
        std::erase_if(caseRows_, [&](const kit::CourtCaseRow& row) {
            return !words.matches({row.name, row.number, row.followed.note}) &&
                   !hasEntry(row.followed.feed);
        });
        std::erase_if(newCases_, [&](const SeenCase& seen) {
            return !words.matches({seen.found.name, seen.found.number, seen.found.nature});
        });
    }
    cases_.setRows(caseLines(caseRows_, newCases_, looks_[Court], now()));
    updateNothing(caseRows_.empty() && newCases_.empty(),
                  !followed.empty() || !content_.held.cases.empty());
}

void RecordsPageModel::showCase() {
    const auto place = static_cast<std::size_t>(row_);
    caseNote_.clear();
    entriesFact_.clear();
    if (place >= caseRows_.size()) {
        const auto& found = newCases_[place - caseRows_.size()].found;
        sheet_.lead = caseDetail(found.courtName.empty() ? found.court : found.courtName,
                                 found.number, found.judge);
        sheet_.title = titleText(found.name, kTitleCharacters);
        sheet_.note = titleText(found.cause.empty() ? found.nature : found.cause);
        sheet_.link = openableLink(found.link);
        sheet_.linkText = tr("Opens the docket");
        entries_.setRows({});
        return;
    }
    const auto& row = caseRows_[place];
    const auto words = filterOf(words_);
    std::vector<kit::CourtItem> items;
    std::vector<kit::DocketEntry> all;
    for (auto& item : itemsIn(content_.held.entries)) {
        if (item.feed != row.followed.feed) continue;
        all.push_back(item.entry);
        if (words.isEmpty() || mentions(words, item.entry)) items.push_back(std::move(item));
    }
    const auto content = kit::courtContent(std::move(items), {.includesRoutine = showsRoutine_});
    const auto missing = row.followed.docket != 0 ? titleText(kit::missingNumbers(all)) : QString();
    entries_.setRows(entryLines(content, missing, looks_[Court], now()));
    const auto& line = cases_.rows()[place];
    sheet_.lead = line.detail;
    sheet_.title = line.name;
    if (row.found) {
        sheet_.note = titleText(row.found->cause.empty() ? row.found->nature : row.found->cause);
        sheet_.link = openableLink(row.found->link);
    } else if (row.followed.docket != 0) {
        sheet_.link = plainText(kit::DocketAPI::docketAddress(row.followed.docket));
    }
    sheet_.linkText = tr("Opens the docket");
    sheet_.copy = QStringList{sheet_.title, sheet_.lead, sheet_.link}.join(QStringLiteral(" · "));
    caseNote_ = titleText(row.followed.note, kExcerptCharacters);
    entriesFact_ = tr("%1, of them %2 that matter")
                       .arg(QLocale().toString(static_cast<qulonglong>(row.entries)),
                            QLocale().toString(static_cast<qulonglong>(row.matters)));
}

bool RecordsPageModel::isFollowed() const {
    return tab_ == Court && row_ >= 0 && row_ < std::ssize(caseRows_) &&
           caseRows_[static_cast<std::size_t>(row_)].followed.docket != 0;
}

bool RecordsPageModel::canFollow() const {
    return tab_ == Court && row_ >= std::ssize(caseRows_) && row_ < rowCount();
}

void RecordsPageModel::setShowsRoutine(bool shows) {
    if (shows == showsRoutine_) return;
    showsRoutine_ = shows;
    showChosen();
    emit changed();
}

void RecordsPageModel::openEntry(int row) {
    const auto* entry = entries_.row(row);
    if (entry && !entry->link.isEmpty()) openLink(entry->link);
}

/// Without a note the case is followed no longer.
void RecordsPageModel::follow(std::int64_t docket, const std::optional<std::string>& note,
                              const QString& step, const QString& notice) {
    auto& defaults = stores().defaults;
    auto& tracked = trackers();
    const auto before = followedNote(defaults, docket);
    if (before == note) return;
    const auto set = [&defaults, &tracked, docket](const std::optional<std::string>& value) {
        return
            [&defaults, &tracked, docket, value] { setFollowed(defaults, tracked, docket, value); };
    };
    set(note)();
    stores().undo.push({.text = step, .undo = set(before), .redo = set(note), .notice = notice});
    load();
}

void RecordsPageModel::followCase() {
    if (!canFollow()) return;
    const auto& found = newCases_[static_cast<std::size_t>(row_) - caseRows_.size()].found;
    chosen_[Court] = docketFile(found.docket).name;
    follow(found.docket, std::string(), tr("Follow a case"),
           tr("%1 is followed.").arg(titleText(found.name)));
}

void RecordsPageModel::addCase(const QString& address) {
    const auto docket = docketNumberIn(address.trimmed().toStdString());
    if (!docket) {
        emit noticed(
            tr("That is no docket of CourtListener: its address has the form "
               "courtlistener.com/docket/12345/…"));
        return;
    }
    if (followedNote(stores().defaults, *docket)) {
        emit noticed(tr("The case is followed already."));
        return;
    }
    chosen_[Court] = docketFile(*docket).name;
    follow(*docket, std::string(), tr("Follow a case"), tr("The case is followed."));
}

void RecordsPageModel::unfollowCase() {
    if (!isFollowed()) return;
    const auto& row = caseRows_[static_cast<std::size_t>(row_)];
    follow(row.followed.docket, std::nullopt, tr("Unfollow a case"),
           tr("%1 is no longer followed.").arg(cases_.rows()[static_cast<std::size_t>(row_)].name));
}

void RecordsPageModel::setCaseNote(const QString& note) {
    if (!isFollowed() || note == caseNote_) return;
    const auto docket = caseRows_[static_cast<std::size_t>(row_)].followed.docket;
    follow(docket, note.trimmed().toStdString(), tr("Change why a case is followed"), {});
}

}  // namespace app
