#include "NewsroomKit/Library/ImportPreview.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Feeds/FeedEncoding.h"
#include "NewsroomKit/Feeds/TextTruncation.h"
#include "NewsroomKit/Library/ImportedLink.h"
#include "NewsroomKit/Library/LibraryFile.h"
#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kLongestLink = 4'000;
constexpr std::size_t kLongestTitle = 500;
constexpr std::size_t kLongestExcerpt = 2'000;
constexpr std::size_t kShownOfEntry = 120;
constexpr std::size_t kLookedAt = 4'000;

bool containsLower(std::string_view text, std::string_view lower) {
    for (std::size_t at = 0; at + lower.size() <= text.size(); ++at) {
        if (standsAt(text, at, lower)) return true;
    }
    return false;
}

boost::outcome_v2::unchecked<ImportForm, ImportRefusal> formOf(std::string_view utf8) {
    const auto refused = [](ImportFault fault) { return ImportRefusal{.fault = fault}; };
    const auto begin = utf8.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos) return refused(ImportFault::empty);
    const auto head = utf8.substr(begin, kLookedAt);
    if (head.find('\0') != std::string_view::npos) return refused(ImportFault::unknownForm);
    if (head.starts_with('{') || head.starts_with('[')) return ImportForm::library;
    if (head.starts_with('<')) {
        if (containsLower(head, "<opml")) return refused(ImportFault::outlines);
        if (containsLower(head, "netscape-bookmark") || containsLower(head, "<dl"))
            return ImportForm::bookmarks;
        return refused(ImportFault::unknownForm);
    }
    if (isLinkTable(head)) return ImportForm::table;
    const bool isTable = head.substr(0, head.find('\n')).find(',') != std::string_view::npos;
    return refused(isTable ? ImportFault::noAddresses : ImportFault::unknownForm);
}

std::string outletOf(const std::string& link) {
    const auto address = WebAddress::parse(link);
    if (!address) return "";
    return address->host.starts_with("www.") ? address->host.substr(4) : address->host;
}

/// A story of a link that some other program kept.
SavedStory storyOf(ImportedLink& link, Instant now) {
    SavedStory story;
    story.link = canonicalLink(link.link);
    story.id = storyID(story.link);
    story.savedAt = std::min(link.addedAt.value_or(now), now);
    story.publishedAt = story.savedAt;
    story.title = cutAtWord(link.title.empty() ? story.link : link.title, kLongestTitle);
    story.excerpt = cutAtBoundary(link.excerpt, kLongestExcerpt);
    story.sourceName = outletOf(story.link);
    std::ranges::sort(link.tags);
    const auto repeated = std::ranges::unique(link.tags);
    link.tags.erase(repeated.begin(), repeated.end());
    story.tags = std::move(link.tags);
    return story;
}

/// The stories of a library by the links under which they may be found.
class KnownStories {
public:
    explicit KnownStories(const std::vector<SavedStory>& stories) {
        for (const auto& story : stories) {
            byID_.emplace(story.id, &story);
            links_.insert(canonicalLink(story.link));
            if (story.articleLink) links_.insert(canonicalLink(*story.articleLink));
        }
    }

    const SavedStory* withID(const std::string& id) const {
        const auto found = byID_.find(id);
        return found == byID_.end() ? nullptr : found->second;
    }
    bool hasLink(const std::string& canonical) const { return links_.contains(canonical); }
    bool hasLinkOf(const SavedStory& story) const {
        return hasLink(canonicalLink(story.link)) ||
               (story.articleLink && hasLink(canonicalLink(*story.articleLink)));
    }

private:
    std::unordered_map<std::string, const SavedStory*> byID_;
    std::unordered_set<std::string> links_;
};

/// Turns links into stories, and sorts them into those that are new and those that are here.
class LinkSorting {
public:
    LinkSorting(ImportForm form, const LibraryContents& here, Instant now)
        : known_(here.stories), now_(now) {
        preview_.form = form;
    }

    void take(ImportedLink& link) {
        if (link.isUnclosed) return addProblem(link, ImportObstacle::unclosedQuote);
        if (link.link.size() > kLongestLink) return addProblem(link, ImportObstacle::tooLong);
        if (!isWebLink(link.link)) return addProblem(link, ImportObstacle::noWebAddress);
        if (link.hasUnreadableDate) addProblem(link, ImportObstacle::unreadableDate);
        auto story = storyOf(link, now_);
        const auto place = places_.find(story.link);
        if (place != places_.end()) {
            joinTags(*place->second, story.tags);
            return addProblem(link, ImportObstacle::twice);
        }
        const bool isHere = known_.hasLink(story.link);
        auto& stories = isHere ? here_ : fresh_;
        if (!isHere && link.isRead) preview_.readStories.push_back(story.id);
        stories.push_back(std::make_unique<SavedStory>(std::move(story)));
        places_.emplace(stories.back()->link, stories.back().get());
    }

    ImportPreview take() && {
        for (auto& story : fresh_) preview_.fresh.stories.push_back(std::move(*story));
        for (auto& story : here_) preview_.here.stories.push_back(std::move(*story));
        return std::move(preview_);
    }

private:
    /// A link that lies in two folders has the tags of both.
    static void joinTags(SavedStory& story, const std::vector<std::string>& tags) {
        std::vector<std::string> joined;
        std::ranges::set_union(story.tags, tags, std::back_inserter(joined));
        story.tags = std::move(joined);
    }

    void addProblem(const ImportedLink& link, ImportObstacle obstacle) {
        const auto text = singleLine(link.title.empty() ? link.link : link.title);
        preview_.problems.push_back(
            {.obstacle = obstacle, .line = link.line, .text = cutAtWord(text, kShownOfEntry)});
    }

    KnownStories known_;
    Instant now_;
    ImportPreview preview_;
    std::vector<std::unique_ptr<SavedStory>> fresh_, here_;
    std::unordered_map<std::string, SavedStory*> places_;  ///< by link
};

ImportResult sortedLinks(std::vector<ImportedLink> links, ImportForm form,
                         const LibraryContents& here, Instant now) {
    if (links.size() > kMostImportedEntries) return ImportRefusal{.fault = ImportFault::tooMany};
    LinkSorting sorting(form, here, now);
    for (auto& link : links) sorting.take(link);
    return std::move(sorting).take();
}

enum class Place { fresh, here, differing };

/// Sorts the records of an exported library by what the library holds.
class RecordSorting {
public:
    RecordSorting(LibraryFileReading reading, const LibraryContents& here)
        : read_(std::move(reading.contents)), here_(here), stories_(here.stories) {
        preview_.form = ImportForm::library;
        preview_.problems = std::move(reading.problems);
    }

    ImportPreview sorted() && {
        for (auto& story : read_.stories) {
            const auto* known = stories_.withID(story.id);
            auto place = Place::fresh;
            if (known) {
                const bool isSame = *known == story && hasText(story.id);
                place = isSame ? Place::here : Place::differing;
            } else if (stories_.hasLinkOf(story)) {
                place = Place::here;
            }
            moveText(story.id, place);
            const auto key = "story:" + story.id;
            moveTo(place, key, &LibraryContents::stories, std::move(story));
        }
        for (const auto& [story, text] : read_.texts) {
            preview_.problems.push_back({.obstacle = ImportObstacle::unreadable,
                                         .text = "texts (" + story + ')',
                                         .detail = "its story is not in the file"});
        }
        sortByID("clip:", &LibraryContents::clips);
        sortByID("note:", &LibraryContents::notes);
        sortByID("project:", &LibraryContents::projects);
        preview_.fresh.unknownParts = std::move(read_.unknownParts);
        return std::move(preview_);
    }

private:
    LibraryContents& contents(Place place) {
        if (place == Place::fresh) return preview_.fresh;
        return place == Place::here ? preview_.here : preview_.differing;
    }

    /// Whether the library has the text that the file has.
    bool hasText(const std::string& story) const {
        const auto wanted = read_.texts.find(story);
        if (wanted == read_.texts.end()) return true;
        const auto found = here_.texts.find(story);
        return found != here_.texts.end() && found->second == wanted->second;
    }

    void moveText(const std::string& story, Place place) {
        if (auto text = read_.texts.extract(story)) contents(place).texts.insert(std::move(text));
        moveExtras("text:" + story, place);
    }

    void moveExtras(const std::string& key, Place place) {
        if (auto extra = read_.extras.extract(key)) contents(place).extras.insert(std::move(extra));
    }

    template <class Member, class R>
    void moveTo(Place place, const std::string& key, Member member, R record) {
        moveExtras(key, place);
        (contents(place).*member).push_back(std::move(record));
    }

    template <class Member>
    void sortByID(const std::string& prefix, Member member) {
        using R = typename std::remove_cvref_t<decltype(here_.*member)>::value_type;
        std::unordered_map<std::string_view, const R*> known;
        for (const auto& record : here_.*member) known.emplace(record.id, &record);
        for (auto& record : read_.*member) {
            const auto found = known.find(record.id);
            auto place = Place::fresh;
            if (found != known.end())
                place = *found->second == record ? Place::here : Place::differing;
            const auto key = prefix + record.id;
            moveTo(place, key, member, std::move(record));
        }
    }

    LibraryContents read_;
    const LibraryContents& here_;
    KnownStories stories_;
    ImportPreview preview_;
};

}  // namespace

ImportResult previewImport(std::string_view bytes, const LibraryContents& here, Instant now) {
    if (bytes.size() > kMostBytesOfImport) return ImportRefusal{.fault = ImportFault::tooLarge};
    std::string storage;
    const auto utf8 = labelledInUTF8(bytes, "", storage);
    const auto form = formOf(utf8);
    if (!form) return form.error();
    if (form.value() == ImportForm::bookmarks) {
        return sortedLinks(readBookmarks(utf8, kMostImportedEntries), form.value(), here, now);
    }
    if (form.value() == ImportForm::table) {
        auto links = readLinkTable(utf8, kMostImportedEntries);
        if (!links) return links.error();
        return sortedLinks(std::move(links.value()), form.value(), here, now);
    }
    auto reading = readLibraryFile(utf8);
    if (!reading) return reading.error();
    return RecordSorting(std::move(reading.value()), here).sorted();
}

}  // namespace kit
