#include "NewsroomKit/Attribution/Correction.h"

#include <algorithm>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

bool isBlank(const std::optional<std::string>& text) {
    return !text || trimWhitespaceAndNewlines(*text).empty();
}

void requireShort(const std::string& text, const char* key) {
    if (text.size() > kLongestCorrectionText) throw RecordError(key, "the text is too long");
}

void requireShort(const std::optional<std::string>& text, const char* key) {
    if (text) requireShort(*text, key);
}

void requireInstead(const Correction& correction) {
    const auto instead = correction.instead.value_or(Correction::Instead());
    requireShort(instead.outlet, "instead.outlet");
    requireShort(instead.link, "instead.link");
    requireShort(instead.name, "instead.name");
    requireShort(instead.by, "instead.by");
    switch (correction.kind) {
        case Correction::Kind::notSame:
        case Correction::Kind::same: return;
        case Correction::Kind::first:
            if (isBlank(instead.outlet)) throw RecordError("instead.outlet", "a name is needed");
            return;
        case Correction::Kind::credit:
            if (isBlank(instead.name)) throw RecordError("instead.name", "a name is needed");
            if (instead.by && isBlank(instead.by))
                throw RecordError("instead.by", "a name is needed");
            return;
        case Correction::Kind::label:
            if (!instead.kind && !instead.sourcing)
                throw RecordError("instead", "a kind or a sourcing is needed");
            return;
    }
}

}  // namespace

void requireSound(const Correction& correction) {
    const auto& stories = correction.stories;
    requireShort(correction.id, "id");
    requireShort(correction.note, "note");
    if (stories.empty()) throw RecordError("stories", "at least one story is needed");
    if (stories.size() > kMostCorrectedStories) throw RecordError("stories", "too many stories");
    for (const auto& story : stories) {
        if (story.empty()) throw RecordError("stories", "a story has no id");
        requireShort(story, "stories");
    }
    const bool differ =
        std::ranges::any_of(stories, [&](const auto& s) { return s != stories[0]; });
    const bool isRelation = correction.kind == Correction::Kind::same ||
                            (correction.kind == Correction::Kind::notSame && stories.size() > 1);
    if (isRelation && !differ) throw RecordError("stories", "at least two stories are needed");
    requireInstead(correction);
}

}  // namespace kit
