// What pages and commands wait for when much is kept: 10,000 clips, 10,000 notes, 2,000 projects of
// which one has 1,000 stories with kept texts of 5 kB. One row of figures each; the library lies in
// a temporary folder.

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Library/ContentHash.h"
#include "Tarnwick_Brell/Library/KeptStore.h"
#include "Tarnwick_Brell/Library/LibraryExchange.h"
#include "Tarnwick_Brell/Library/ProjectEvidence.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int clipCount = 10'000;
constexpr int noteCount = 10'000;
constexpr int projectCount = 2'000;
constexpr int storyCount = 1'000;
constexpr int repetitions = 15;

const kit::Instant today = kit::parseISO8601("2026-11-23T00:00:00Z").value();

std::string idOf(char letter, int number) {
    return fmt::format("{}0000000-0000-4000-8000-{:012}", letter, number);
}

/// About as many different words as a language has, some of them in every text.
std::string wordsOf(int seed, std::size_t bytes) {
    std::string text = "Monday the growers said ";
    for (int word = 0; text.size() < bytes; ++word)
        text += fmt::format("word{} gate{} ", (seed * 31 + word * word * 7) % 9'973, word % 17);
    return text;
}

/// The first project has a share of everything and all stories.
std::vector<std::string> projectsOf(int number) {
    std::vector<std::string> ids{idOf('d', number % projectCount)};
    if (number % 50 == 0) ids.push_back(idOf('d', 0));
    std::ranges::sort(ids);
    ids.erase(std::ranges::unique(ids).begin(), ids.end());
    return ids;
}

void addStories(kit::LibraryContents& contents) {
    for (int number = 0; number < storyCount; ++number) {
        kit::SavedStory story{.id = fmt::format("{:016x}", number * 7'919),
                              .savedAt = today - std::chrono::minutes(number),
                              .link = fmt::format("https://orchard.example/{}", number),
                              .title = fmt::format("Orchard {} opens its gates", number),
                              .excerpt = wordsOf(number, 200),
                              .publishedAt = today - std::chrono::hours(number),
                              .sourceID = "orchard",
                              .sourceName = "The Orchard Post"};
        story.projectIDs = {idOf('d', 0)};
        const auto text = wordsOf(number, 5'000);
        contents.texts[story.id] = {.url = story.link,
                                    .fetchedAt = today,
                                    .sha256 = kit::sha256Hex(text),
                                    .title = story.title,
                                    .text = text};
        contents.stories.push_back(std::move(story));
    }
}

kit::LibraryContents contentsOfYears() {
    kit::LibraryContents contents;
    for (int number = 0; number < projectCount; ++number)
        contents.projects.push_back({.id = idOf('d', number),
                                     .name = fmt::format("Project {}", number),
                                     .description = wordsOf(number, 100),
                                     .createdAt = today});
    for (int number = 0; number < clipCount; ++number)
        contents.clips.push_back({.id = idOf('c', number),
                                  .quote = wordsOf(number, 400),
                                  .link = "https://orchard.example/pears",
                                  .title = fmt::format("Pears {} are early", number),
                                  .sourceName = "The Orchard Post",
                                  .accessedAt = today - std::chrono::minutes(number),
                                  .tags = {fmt::format("tag {}", number % 40)},
                                  .projectIDs = projectsOf(number)});
    for (int number = 0; number < noteCount; ++number)
        contents.notes.push_back({.id = idOf('a', number),
                                  .title = fmt::format("Note {}", number),
                                  .text = wordsOf(number, 1'500),
                                  .createdAt = today - std::chrono::minutes(number),
                                  .changedAt = today - std::chrono::minutes(number),
                                  .projectIDs = projectsOf(number)});
    addStories(contents);
    return contents;
}

/// The middle and the longest of several runs.
void measure(const char* name, const std::function<std::size_t()>& work, int times = repetitions) {
    std::vector<double> milliseconds;
    std::size_t count = 0;
    for (int run = 0; run < times; ++run) {
        const auto begin = Clock::now();
        count = work();
        milliseconds.push_back(
            std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    }
    std::ranges::sort(milliseconds);
    fmt::print("{:<44}{:>10.1f}{:>10.1f}{:>10}\n", name, milliseconds[milliseconds.size() / 2],
               milliseconds.back(), count);
}

void measurePages(app::LocalStore& store) {
    app::KeptStore kept(store, today);
    const auto listed = [&](app::KeptQuery query) { return store.kept().list(query).size(); };
    measure("list of all clips", [&] { return listed({.kind = app::KeptKind::clip}); });
    measure("list of all notes", [&] { return listed({.kind = app::KeptKind::note}); });
    measure("list of all projects", [&] { return listed({.kind = app::KeptKind::project}); });
    measure("list of all saved stories", [&] { return listed({.kind = app::KeptKind::story}); });
    measure("clips with a tag",
            [&] { return listed({.kind = app::KeptKind::clip, .tag = "tag 7"}); });
    measure("tags", [&] { return store.kept().tags().size(); });
    measure("one note", [&] { return kept.find<kit::Note>(idOf('a', 77))->text.size(); });
    for (const int number : {0, 77}) {
        const auto project = *kept.find<kit::Project>(idOf('d', number));
        measure(number == 0 ? "page of the large project" : "page of a project",
                [&] { return kept.timeline(project).size(); });
    }
}

void measureSearches(app::LocalStore& store) {
    struct Row {
        const char* name;
        app::KeptSearchQuery query;
    };
    using enum app::SearchScope;
    for (const auto& [name, query] :
         {Row{"search: a rare word", {.text = "word4711"}},
          Row{"search: a word of every text", {.text = "growers"}},
          Row{"search: two words of every text", {.text = "growers monday"}},
          Row{"search: letters of a word being typed",
              {.text = "wo", .lastWord = app::SearchText::LastWord::stillTyped}},
          Row{"search: a word of every note", {.text = "growers", .scope = notes}},
          Row{"search: in the large project", {.text = "growers", .project = idOf('d', 0)}}})
        measure(name, [&] { return store.keptSearch().find(query).size(); });
}

void measurePacks(app::LocalStore& store, const std::filesystem::path& folder) {
    const auto project = *app::KeptStore(store, today).find<kit::Project>(idOf('d', 0));
    const auto pack = [&](app::PackShape shape) {
        const auto evidence = app::projectEvidence(store, project, today, "bench");
        app::writePack(evidence, folder, shape, app::Existing::isReplaced, kit::TimeZone("UTC"));
        return evidence.stories.size();
    };
    measure("pack of 1,000 stories as a folder", [&] { return pack(app::PackShape::folder); }, 5);
    measure("pack of 1,000 stories as a .zip", [&] { return pack(app::PackShape::zip); }, 5);
}

}  // namespace

int main() {
    const test::TemporaryFolder folder;
    app::LocalStore store(folder.path() / "library.sqlite", app::Database::Access::readWrite);
    fmt::print("{:<44}{:>10}{:>10}{:>10}\n", "", "middle ms", "most ms", "found");
    kit::ImportPreview preview;
    preview.fresh = contentsOfYears();
    const auto all = preview.fresh.clips.size() + preview.fresh.notes.size() +
                     preview.fresh.projects.size() + preview.fresh.stories.size();
    measure(
        "import of everything",
        [&] {
            app::importKept(store, preview, app::Differing::stays, today);
            return all;
        },
        1);
    measurePages(store);
    measureSearches(store);
    auto typed = *app::KeptStore(store, today).find<kit::Note>(idOf('a', 5));
    measure("saving a note while it is typed", [&] {
        typed.text += "more ";
        return app::KeptStore(store, today).put(typed, app::NoteSaving::whileTyping).text.size();
    });
    measurePacks(store, folder.path());
    return 0;
}
