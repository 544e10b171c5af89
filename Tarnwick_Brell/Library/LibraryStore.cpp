#include "Tarnwick_Brell/Library/LibraryStore.h"

#include "NewsroomKit/Library/ClipMaking.h"

namespace app {

LibraryStore::LibraryStore(DeskWorker& worker, kit::Clock clock)
    : worker_(worker), clock_(std::move(clock)), queue_(std::make_shared<MainThreadQueue>()) {}

// Jobs in flight continue; their results are dropped.
LibraryStore::~LibraryStore() { queue_->close(); }

void LibraryStore::count(std::function<void(Counts)> then) {
    readWith<Counts>(
        [](KeptStore&, LocalStore& store) {
            auto& kept = store.kept();
            return Counts{.clips = kept.count(KeptKind::clip),
                          .notes = kept.count(KeptKind::note),
                          .projects = kept.count(KeptKind::project)};
        },
        std::move(then));
}

void LibraryStore::list(KeptQuery query, std::function<void(std::vector<KeptRow>)> then) {
    readWith<std::vector<KeptRow>>(
        [query = std::move(query)](KeptStore&, LocalStore& store) {
            return store.kept().list(query);
        },
        std::move(then));
}

void LibraryStore::listRemoved(std::function<void(std::vector<KeptRow>)> then) {
    readWith<std::vector<KeptRow>>(
        [now = clock_()](KeptStore&, LocalStore& store) { return store.kept().removed(now); },
        std::move(then));
}

void LibraryStore::search(KeptSearchQuery query, std::function<void(std::vector<SearchHit>)> then) {
    readWith<std::vector<SearchHit>>(
        [query = std::move(query)](KeptStore&, LocalStore& store) {
            return store.keptSearch().find(query);
        },
        std::move(then));
}

void LibraryStore::listTags(std::function<void(std::vector<std::string>)> then) {
    readWith<std::vector<std::string>>(
        [](KeptStore&, LocalStore& store) { return store.kept().tags(); }, std::move(then));
}

void LibraryStore::listVersions(std::string note,
                                std::function<void(std::vector<kit::NoteVersion>)> then) {
    readWith<std::vector<kit::NoteVersion>>(
        [note = std::move(note)](KeptStore&, LocalStore& store) {
            return store.noteVersions().of(note);
        },
        std::move(then));
}

void LibraryStore::readProject(std::string id,
                               std::function<void(std::optional<ProjectPage>)> then) {
    readWith<std::optional<ProjectPage>>(
        [id = std::move(id)](KeptStore& kept, LocalStore&) -> std::optional<ProjectPage> {
            auto project = kept.find<kit::Project>(id);
            if (!project) return std::nullopt;
            auto timeline = kept.timeline(*project);
            return ProjectPage{.project = std::move(*project), .timeline = std::move(timeline)};
        },
        std::move(then));
}

void LibraryStore::readText(std::string story,
                            std::function<void(std::optional<kit::SavedText>)> then) {
    readWith<std::optional<kit::SavedText>>(
        [story = std::move(story)](KeptStore&, LocalStore& store) {
            return store.savedStories().text(story);
        },
        std::move(then));
}

void LibraryStore::clip(kit::Story story, std::string quote, std::string id,
                        std::function<void(kit::Clip)> then) {
    writeWith<kit::Clip>(
        [story = std::move(story), quote = std::move(quote), id = std::move(id), now = clock_()](
            KeptStore& kept, LocalStore& store) {
            const auto stored = store.articles().find(story.id);
            auto clip = kit::madeClip(story, stored ? &stored->article : nullptr, quote);
            clip.id = id;
            clip.accessedAt = now;
            return kept.put(std::move(clip));
        },
        std::move(then));
}

void LibraryStore::saveTyped(kit::Note note, std::function<void(kit::Note)> then) {
    writeWith<kit::Note>(
        [note = std::move(note)](KeptStore& kept, LocalStore&) {
            return kept.put(note, NoteSaving::whileTyping);
        },
        std::move(then));
}

void LibraryStore::change(std::function<bool(KeptStore&)> work) {
    writeWith<bool>([work = std::move(work)](KeptStore& kept, LocalStore&) { return work(kept); },
                    {});
}

void LibraryStore::remove(KeptKind kind, std::string id) {
    change([kind, id = std::move(id)](KeptStore& kept) { return kept.remove(kind, id); });
}

void LibraryStore::restore(KeptKind kind, std::string id) {
    change([kind, id = std::move(id)](KeptStore& kept) { return kept.restore(kind, id); });
}

void LibraryStore::setMember(std::string project, kit::MemberKind kind, std::string id, bool isIn) {
    change([project = std::move(project), kind, id = std::move(id), isIn](KeptStore& kept) {
        return kept.setMember(project, kind, id, isIn);
    });
}

void LibraryStore::setDone(std::string project, std::string memberKey, bool isDone) {
    change([project = std::move(project), key = std::move(memberKey), isDone](KeptStore& kept) {
        return kept.setDone(project, key, isDone);
    });
}

void LibraryStore::moveMember(std::string project, std::string memberKey, std::size_t place) {
    change([project = std::move(project), key = std::move(memberKey), place](KeptStore& kept) {
        return kept.moveMember(project, key, place);
    });
}

void LibraryStore::moveProject(std::string id, std::size_t place) {
    change([id = std::move(id), place](KeptStore& kept) { return kept.moveProject(id, place); });
}

}  // namespace app
