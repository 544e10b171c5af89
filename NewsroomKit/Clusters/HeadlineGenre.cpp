#include "NewsroomKit/Clusters/HeadlineGenre.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "NewsroomKit/Text/Folding.h"

namespace kit {

namespace {

constexpr std::string_view kOpinionStarts[] = {
    "opinion:",      "opinion |",     "opinion -",         "editorial:",
    "op-ed:",        "commentary:",   "column:",           "comment:",
    "analysis:",     "hot take:",     "perspective:",      "letter:",
    "essay:",        "why i ",        "i think ",          "i love ",
    "i hate ",       "i want ",       "dear apple",        "in defense of",
    "in defence of", "the case for ", "the case against ", "apple should ",
    "macalope",      "the macalope",
};

constexpr std::string_view kOpinionParts[] = {
    "(opinion)",       "[opinion]",         "| opinion",
    "- opinion",       "apple should ",     "apple shouldn't",
    "apple needs to ", "is the wrong kind", "it's time for apple",
};

constexpr std::string_view kGuideStarts[] = {
    "how to ",
    "how and when to ",
    "how you can ",
    "here's how to ",
    "tip:",
    "tips:",
    "everything new ",
    "all the new ",
    "all new features",
    "here's everything new",
    "here's what's new",
    "what's new in ",
    "hidden features",
    "first look:",
};

constexpr std::string_view kGuideParts[] = {
    " features:",      "features in ios", "features you",   "every new feature", "every change",
    "tips and tricks", "how to ",         "things to know", "things you",
};

constexpr std::string_view kCompanionStarts[] = {
    "top stories",
    "where to watch",
    "what to watch",
    "best ",
    "the best ",
    "deals:",
    "daily deals",
    "deal:",
    "live:",
    "live blog",
    "live updates",
    "everything apple announced",
    "everything announced",
    "week in review",
    "this week in",
    "weekly ",
    "daily roundup",
    "morning briefing",
    "morning brief",
    "newsletter:",
    "poll:",
    "podcast:",
    "video:",
    "gift guide",
    "quiz:",
    "recap:",
    "roundup:",
    "what time ",
    "links:",
    "rumor roundup",
    "rumour roundup",
    "9to5mac daily",
};

constexpr std::string_view kCompanionParts[] = {
    "live blog",
    "liveblog",
    "live updates",
    "live coverage",
    "how to watch",
    "where to watch",
    "watch online",
    "top stories",
    "week in review",
    "news roundup",
    "rumor roundup",
    "rumour roundup",
    "deals roundup",
    "buyer's guide",
    "buying guide",
    "everything we know",
    "everything you need to know",
    "what we know so far",
    "weekly recap",
    "daily recap",
    "black friday",
    "cyber monday",
    "prime day",
};

template <std::size_t Count>
bool beginsWithAny(std::string_view text, const std::string_view (&phrases)[Count]) {
    return std::any_of(std::begin(phrases), std::end(phrases),
                       [&](std::string_view phrase) { return text.starts_with(phrase); });
}

template <std::size_t Count>
bool holdsAny(std::string_view text, const std::string_view (&phrases)[Count]) {
    return std::any_of(std::begin(phrases), std::end(phrases), [&](std::string_view phrase) {
        return text.find(phrase) != std::string_view::npos;
    });
}

}  // namespace

HeadlineGenre headlineGenre(std::string_view title, StoryKind kind) {
    std::string text = fold(title.substr(0, 300));
    for (std::size_t at = text.find("\u2019"); at != std::string::npos; at = text.find("\u2019")) {
        text.replace(at, std::string_view("\u2019").size(), "'");
    }
    if (beginsWithAny(text, kOpinionStarts) || holdsAny(text, kOpinionParts)) {
        return HeadlineGenre::opinion;
    }
    if (beginsWithAny(text, kGuideStarts) || holdsAny(text, kGuideParts)) {
        return HeadlineGenre::guide;
    }
    const bool isCompanionKind = kind == StoryKind::roundup || kind == StoryKind::podcast ||
                                 kind == StoryKind::sponsored || kind == StoryKind::advertisement;
    if (isCompanionKind || beginsWithAny(text, kCompanionStarts) ||
        holdsAny(text, kCompanionParts)) {
        return HeadlineGenre::companion;
    }
    return HeadlineGenre::news;
}

}  // namespace kit
