#include "Tarnwick_Brell/Library/KeptStore.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Newsrooms/UUID.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Storage/Tables/RecordRank.h"

namespace app {

namespace {

constexpr std::size_t kMostTags = 50;
constexpr std::size_t kMostMembers = 10'000;
constexpr std::size_t kMostTagCharacters = 100;
constexpr std::size_t kMostNameCharacters = 200;
constexpr std::size_t kMostDescriptionBytes = 20'000;

void requireSize(std::string_view what, std::string_view text, std::size_t most) {
    if (text.size() <= most) return;
    throw KeptProblem(
        fmt::format("{} can have {} bytes at most; this one has {}.", what, most, text.size()));
}

std::string cleanLine(std::string_view what, std::string_view text) {
    auto line = kit::singleLine(text);
    if (kit::characterCount(line) > kMostNameCharacters) {
        throw KeptProblem(
            fmt::format("{} can have {} characters at most.", what, kMostNameCharacters));
    }
    return line;
}

void sortOnce(std::vector<std::string>& values) {
    std::erase(values, std::string());
    std::ranges::sort(values);
    values.erase(std::ranges::unique(values).begin(), values.end());
    if (values.size() > kMostMembers)
        throw KeptProblem(fmt::format("It can belong to {} things at most.", kMostMembers));
}

void cleanTags(std::vector<std::string>& tags) {
    for (auto& tag : tags) {
        tag = kit::singleLine(tag);
        if (kit::characterCount(tag) > kMostTagCharacters)
            throw KeptProblem(
                fmt::format("A tag can have {} characters at most.", kMostTagCharacters));
    }
    sortOnce(tags);
    if (tags.size() > kMostTags)
        throw KeptProblem(fmt::format("There can be {} tags at most.", kMostTags));
}

void giveID(std::string& id) {
    if (id.empty()) id = kit::UUID::random().text();
}

/// What this version can't read must not be written over.
void requireReadable(KeptTable& table, KeptKind kind, std::string_view id) {
    const auto row = table.row(kind, id);
    if (row && !row->fault.empty()) {
        throw KeptProblem(
            fmt::format("{} was written by a newer version of the desk ({}). It is kept unchanged.",
                        row->title, row->fault));
    }
}

}  // namespace

kit::Clip KeptStore::put(kit::Clip clip) {
    return putWhole(std::move(clip), NoteSaving::deliberate);
}

kit::Note KeptStore::put(kit::Note note, NoteSaving saving) {
    return putWhole(std::move(note), saving);
}

kit::Project KeptStore::put(kit::Project project) {
    return putWhole(std::move(project), NoteSaving::deliberate);
}

kit::SavedStory KeptStore::put(kit::SavedStory story) {
    return putWhole(std::move(story), NoteSaving::deliberate);
}

kit::Clip KeptStore::write(kit::Clip clip, NoteSaving saving) {
    giveID(clip.id);
    requireReadable(store_.kept(), KeptKind::clip, clip.id);
    clip.quote = kit::withoutControls(clip.quote);
    if (kit::singleLine(clip.quote).empty()) throw KeptProblem("A clip needs a quote.");
    requireSize("A clip", clip.quote, kit::kMostBytesOfQuote);
    clip.prefix = kit::withoutControls(clip.prefix);
    clip.suffix = kit::withoutControls(clip.suffix);
    clip.title = kit::singleLine(clip.title);
    clip.note = kit::withoutControls(clip.note);
    requireSize("The note of a clip", clip.note, kit::kMostBytesOfQuote);
    cleanTags(clip.tags);
    sortOnce(clip.projectIDs);
    // The quote is what was read then.
    if (const auto former = find<kit::Clip>(clip.id)) clip.quote = former->quote;
    writeKept(store_.kept(), clip);
    if (saving != NoteSaving::imported) store_.kept().dropOldContent(now_);
    return clip;
}

kit::Note KeptStore::write(kit::Note note, NoteSaving saving) {
    giveID(note.id);
    requireReadable(store_.kept(), KeptKind::note, note.id);
    note.title = cleanLine("The title of a note", note.title);
    note.text = kit::withoutControls(note.text);
    requireSize("A note", note.text, kit::kMostBytesOfNote);
    cleanTags(note.tags);
    sortOnce(note.storyIDs);
    sortOnce(note.projectIDs);
    const auto former = find<kit::Note>(note.id);
    if (former) {
        note.createdAt = former->createdAt;
        if (former->text != note.text) keepVersion(*former, saving);
    } else if (note.createdAt == kit::Instant()) {
        note.createdAt = now_;
    }
    const bool hasMoment = !former || saving == NoteSaving::imported;
    if (!former || former->text != note.text || former->title != note.title)
        note.changedAt = hasMoment && note.changedAt >= note.createdAt ? note.changedAt : now_;
    writeKept(store_.kept(), note);
    if (saving != NoteSaving::imported) store_.kept().dropOldContent(now_);
    return note;
}

void KeptStore::keepVersion(const kit::Note& former, NoteSaving saving) {
    auto& versions = store_.noteVersions();
    if (former.text.empty()) return;
    const bool isTyped = saving == NoteSaving::whileTyping;
    // A run begins with the first change after a pause.
    if (isTyped && now_ - former.changedAt < kTypingRun) {
        const auto last = versions.lastOf(former.id);
        if (now_ - former.createdAt < kTypingRun || (last && now_ - *last < kTypingRun)) return;
    }
    versions.add({.noteID = former.id, .replacedAt = now_, .text = former.text},
                 store_.sync().machineID());
}

kit::Project KeptStore::write(kit::Project project, NoteSaving saving) {
    giveID(project.id);
    requireReadable(store_.kept(), KeptKind::project, project.id);
    project.name = cleanLine("The name of a project", project.name);
    if (project.name.empty()) throw KeptProblem("A project needs a name.");
    project.description = kit::withoutControls(project.description);
    requireSize("The description of a project", project.description, kMostDescriptionBytes);
    if (project.createdAt == kit::Instant()) project.createdAt = now_;
    writeKept(store_.kept(), project);
    if (saving != NoteSaving::imported) store_.kept().dropOldContent(now_);
    return project;
}

kit::SavedStory KeptStore::write(kit::SavedStory story, NoteSaving saving) {
    requireReadable(store_.kept(), KeptKind::story, story.id);
    cleanTags(story.tags);
    sortOnce(story.projectIDs);
    // All else is what was seen first.
    if (auto former = find<kit::SavedStory>(story.id)) {
        former->tags = std::move(story.tags);
        former->projectIDs = std::move(story.projectIDs);
        story = std::move(*former);
    }
    writeKept(store_.kept(), story);
    if (saving != NoteSaving::imported) store_.kept().dropOldContent(now_);
    return story;
}

bool KeptStore::remove(KeptKind kind, std::string_view id) {
    if (kind == KeptKind::story) {
        const std::array ids{std::string(id)};
        if (!store_.kept().record(kind, id)) return false;
        if (store_.marks().unsave(ids).unknown.empty()) return true;
    }
    auto transaction = store_.transaction();
    bool isRemoved = true;
    if (kind == KeptKind::story) {
        store_.savedStories().hide(id);
    } else {
        isRemoved = store_.kept().remove(kind, id, now_);
    }
    store_.kept().dropOldContent(now_);
    transaction.commit();
    return isRemoved;
}

bool KeptStore::restore(KeptKind kind, std::string_view id) {
    const auto row = store_.kept().row(kind, id);
    if (!row || !row->removedAt) return false;
    if (kind == KeptKind::story) {
        const std::array ids{std::string(id)};
        if (store_.marks().save(ids, now_).unknown.empty()) return true;
    }
    auto transaction = store_.transaction();
    if (kind == KeptKind::story) {
        store_.savedStories().bringBack(id);
    } else {
        store_.kept().restore(kind, id);
    }
    transaction.commit();
    return true;
}

bool KeptStore::bringBack(KeptKind kind, std::string_view id) {
    const auto row = store_.kept().row(kind, id);
    return row && row->removedAt && row->fault.empty() && store_.kept().restore(kind, id);
}

bool KeptStore::setMember(std::string_view project, kit::MemberKind kind, std::string_view id,
                          bool isIn) {
    if (!store_.kept().record(KeptKind::project, project)) return false;
    const auto change = [&](auto& member) {
        std::erase(member.projectIDs, project);
        if (isIn) member.projectIDs.emplace_back(project);
    };
    bool isChanged = false;
    switch (kind) {
        case kit::MemberKind::clip: isChanged = edit<kit::Clip>(id, change); break;
        case kit::MemberKind::note: isChanged = edit<kit::Note>(id, change); break;
        case kit::MemberKind::story: {
            const std::array ids{std::string(id)};
            if (isIn && !find<kit::SavedStory>(id)) store_.marks().save(ids, now_);
            isChanged = edit<kit::SavedStory>(id, change);
            break;
        }
        case kit::MemberKind::signal: return setSignal(project, id, isIn);
    }
    if (isChanged && !isIn) {
        edit<kit::Project>(
            project, [&](kit::Project& its) { kit::forgetMember(its, kit::memberKey(kind, id)); });
    }
    return isChanged;
}

bool KeptStore::setSignal(std::string_view project, std::string_view id, bool isIn) {
    const auto key = kit::memberKey(kit::MemberKind::signal, id);
    if (isIn && !store_.signalLog().find(id)) return false;
    bool isChanged = isIn;
    edit<kit::Project>(project, [&](kit::Project& its) {
        if (isIn) {
            its.done.try_emplace(key, false);
        } else {
            isChanged = its.done.contains(key);
            kit::forgetMember(its, key);
        }
    });
    return isChanged;
}

bool KeptStore::setDone(std::string_view project, std::string_view memberKey, bool isDone) {
    const auto found = find<kit::Project>(project);
    if (!found) return false;
    const auto items = timeline(*found);
    if (std::ranges::none_of(items, [&](const auto& item) { return item.key() == memberKey; }))
        return false;
    return edit<kit::Project>(
        project, [&](kit::Project& its) { its.done[std::string(memberKey)] = isDone; });
}

bool KeptStore::moveMember(std::string_view project, std::string_view memberKey,
                           std::size_t place) {
    const auto found = find<kit::Project>(project);
    if (!found) return false;
    std::vector<std::string> keys;
    for (const auto& item : timeline(*found)) keys.push_back(item.key());
    const auto moved = std::ranges::find(keys, memberKey);
    if (moved == keys.end()) return false;
    keys.erase(moved);
    keys.insert(keys.begin() + static_cast<std::ptrdiff_t>(std::min(place, keys.size())),
                std::string(memberKey));
    return edit<kit::Project>(project, [&](kit::Project& its) {
        its.ranks.erase(std::string(memberKey));
        std::string before;
        for (std::size_t at = 0; at < keys.size(); ++at) {
            const auto own = its.ranks.find(keys[at]);
            // Ranks that rise already stay: a move writes one, except the first.
            if (own == its.ranks.end() || own->second <= before) {
                const auto next = at + 1 < keys.size() ? its.ranks.find(keys[at + 1]) : own;
                const bool fits =
                    keys[at] == memberKey && next != its.ranks.end() && next->second > before;
                its.ranks[keys[at]] = rankBetween(before, fits ? next->second : "");
            }
            before = its.ranks[keys[at]];
        }
    });
}

bool KeptStore::moveProject(std::string_view id, std::size_t place) {
    auto transaction = store_.transaction();
    auto rows = store_.kept().list({.kind = KeptKind::project});
    const auto moved = std::ranges::find(rows, id, &KeptRow::id);
    if (moved == rows.end()) return false;
    rows.erase(moved);
    place = std::min(place, rows.size());
    const auto before = place == 0 ? std::string() : rows[place - 1].rank;
    const auto after = place == rows.size() ? std::string() : rows[place].rank;
    auto rank = rankBetween(before, after > before ? after : "");
    store_.kept().setRank(id, rank);
    // Two computers may have given several the same rank.
    for (; place < rows.size() && rows[place].rank <= rank; ++place) {
        rank = rankBetween(rank, "");
        store_.kept().setRank(rows[place].id, rank);
    }
    transaction.commit();
    return true;
}

kit::ProjectMembers KeptStore::members(const kit::Project& project) {
    const KeptQuery query{.project = project.id};
    kit::ProjectMembers members{.clips = all<kit::Clip>(query),
                                .notes = all<kit::Note>(query),
                                .stories = all<kit::SavedStory>(query)};
    for (const auto& id : kit::signalMembers(project)) {
        if (auto logged = store_.signalLog().find(id))
            members.happenings.push_back(std::move(logged->signal));
    }
    return members;
}

}  // namespace app
