#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Library/ProjectTimeline.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Tables/KeptFaces.h"

namespace app {

/// What the user wants to keep can't be kept as it is; what() is a sentence for the user.
class KeptProblem : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Whether the text that a note loses is worth a version: while somebody types, an editor saves
/// again and again, and only the text from before a run of kTypingRun is. An imported note keeps
/// the time of its last change.
enum class NoteSaving { deliberate, whileTyping, imported };

inline constexpr std::chrono::minutes kTypingRun{5};

/// What the user keeps, as records, on whatever thread the library is used. Each change is a
/// transaction of its own, which also records it for the user's other computers. Throws StoreError,
/// and KeptProblem where it says so.
///
/// Lists come from the library's `kept()` and are fast, because they do not read the records.
class KeptStore {
public:
    /// Changes happen at `now`.
    KeptStore(LocalStore& store, kit::Instant now) : store_(store), now_(now) {}

    /// Nothing when there is none, it is removed or can't be read by this version.
    template <class T>
    std::optional<T> find(std::string_view id) {
        const auto record = store_.kept().record(kKindOf<T>, id);
        return record ? read<T>(*record) : std::nullopt;
    }

    /// The readable ones that the query selects, in the order of the list.
    template <class T>
    std::vector<T> all(KeptQuery query = {}) {
        query.kind = kKindOf<T>;
        std::vector<T> all;
        for (const auto& record : store_.kept().records(query)) {
            if (auto value = read<T>(record)) all.push_back(std::move(*value));
        }
        return all;
    }

    /// Adds a new one or replaces the one with that id, and returns it as it is kept: texts without
    /// control characters, tags and ids sorted and each once, an id made when it has none. Throws
    /// KeptProblem.
    kit::Clip put(kit::Clip clip);
    kit::Note put(kit::Note note, NoteSaving saving = NoteSaving::deliberate);
    kit::Project put(kit::Project project);
    kit::SavedStory put(kit::SavedStory story);

    /// Adds or replaces one that a file brings, within the caller's transaction. One that was
    /// removed is restored first: what was seen first stays. `extras` are its keys that only a
    /// newer version knows. Throws KeptProblem and has written nothing then.
    template <class T>
    void takeOver(T value, const boost::json::object& extras) {
        const auto id = value.id;
        const bool wasRemoved = bringBack(kKindOf<T>, id);
        try {
            const auto written = write(std::move(value), NoteSaving::imported);
            if (!extras.empty()) writeKept(store_.kept(), written, extras);
        } catch (const KeptProblem&) {
            if (wasRemoved) store_.kept().remove(kKindOf<T>, id, now_);
            throw;
        }
    }

    /// Changes a part of what is kept and leaves what another program has changed meanwhile. False
    /// when there is none that can be read. Throws KeptProblem.
    template <class T, class Change>
    bool edit(std::string_view id, const Change& change) {
        auto transaction = store_.transaction();
        auto value = find<T>(id);
        if (!value) return false;
        change(*value);
        write(std::move(*value), NoteSaving::deliberate);
        transaction.commit();
        return true;
    }

    /// It can be restored for KeptTable::kRestorable. False when there is none. A story loses its
    /// mark with it, a project keeps its members.
    bool remove(KeptKind kind, std::string_view id);
    bool restore(KeptKind kind, std::string_view id);

    /// Adds a clip, note, story or signal to a project, or takes it out. A story that is not saved
    /// yet is saved. False when there is no such thing.
    bool setMember(std::string_view project, kit::MemberKind kind, std::string_view id, bool isIn);
    bool setDone(std::string_view project, std::string_view memberKey, bool isDone);
    /// To a place in the timeline, counted from 0 with the member taken out. False when there is
    /// no such member.
    bool moveMember(std::string_view project, std::string_view memberKey, std::size_t place);
    /// To a place among the projects, counted from 0 with the project taken out.
    bool moveProject(std::string_view id, std::size_t place);

    kit::ProjectMembers members(const kit::Project& project);
    std::vector<kit::TimelineItem> timeline(const kit::Project& project) {
        return kit::projectTimeline(project, members(project));
    }

private:
    template <class T>
    static std::optional<T> read(std::string_view record) {
        try {
            return kit::decode<T>(kit::parseJSON(record));
        } catch (const kit::RecordError&) {
            return std::nullopt;
        }
    }

    template <class T>
    T putWhole(T value, NoteSaving saving) {
        auto transaction = store_.transaction();
        auto written = write(std::move(value), saving);
        transaction.commit();
        return written;
    }

    /// Within a transaction.
    kit::Clip write(kit::Clip clip, NoteSaving saving);
    kit::Note write(kit::Note note, NoteSaving saving);
    kit::Project write(kit::Project project, NoteSaving saving);
    kit::SavedStory write(kit::SavedStory story, NoteSaving saving);
    void keepVersion(const kit::Note& former, NoteSaving saving);
    bool bringBack(KeptKind kind, std::string_view id);
    bool setSignal(std::string_view project, std::string_view id, bool isIn);

    LocalStore& store_;
    kit::Instant now_;
};

}  // namespace app
