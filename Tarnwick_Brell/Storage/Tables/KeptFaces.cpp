#include "Tarnwick_Brell/Storage/Tables/KeptFaces.h"

#include "NewsroomKit/Library/NoteTitle.h"

namespace app {

namespace {

constexpr std::size_t kLineCharacters = 200;

void addLinks(KeptFace& face, std::string_view field, const std::vector<std::string>& values) {
    for (const auto& value : values) face.links.emplace_back(field, value);
}

}  // namespace

KeptFace faceOf(const kit::Clip& clip) {
    KeptFace face{.title = clip.title,
                  .line = kit::textBeginning(clip.quote, kLineCharacters),
                  .at = clip.accessedAt,
                  .text = clip.quote + "\n" + clip.note + "\n" + clip.sourceName + "\n" +
                          clip.author.value_or(""),
                  .tags = clip.tags};
    addLinks(face, "project", clip.projectIDs);
    if (!clip.storyID.empty()) addLinks(face, "story", {clip.storyID});
    return face;
}

KeptFace faceOf(const kit::Note& note) {
    KeptFace face{.title = kit::shownTitle(note),
                  .line = kit::textBeginning(note.text, kLineCharacters),
                  .at = note.changedAt,
                  .text = note.text,
                  .tags = note.tags};
    addLinks(face, "project", note.projectIDs);
    addLinks(face, "story", note.storyIDs);
    return face;
}

KeptFace faceOf(const kit::Project& project) {
    return {.title = project.name,
            .line = kit::textBeginning(project.description, kLineCharacters),
            .at = project.createdAt,
            .text = project.description};
}

KeptFace faceOf(const kit::SavedStory& story) {
    KeptFace face{
        .title = story.title,
        .line = kit::textBeginning(story.excerpt, kLineCharacters),
        .at = story.savedAt,
        .text = story.excerpt + "\n" + story.sourceName + "\n" + story.author.value_or(""),
        .tags = story.tags};
    addLinks(face, "project", story.projectIDs);
    addLinks(face, "story", {story.id});
    return face;
}

}  // namespace app
