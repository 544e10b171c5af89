#include "NewsroomKit/Panels/BeatPreview.h"

#include <algorithm>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kShortestInflected = 3;

/// A word that finds this share of at least so many stories, alone, is worth a warning.
constexpr std::size_t kManyStories = 20;
constexpr double kTooMuchShare = 0.4;

/// The English plural of a lower-case word, or its singular. Empty for names, numbers, phrases.
std::string otherFormOf(const std::string& term) {
    const auto isLowercase = [](char c) { return c >= 'a' && c <= 'z'; };
    if (term.size() < kShortestInflected || !std::ranges::all_of(term, isLowercase)) return {};
    if (!term.ends_with('s')) return term + 's';
    return term.ends_with("ss") ? std::string() : term.substr(0, term.size() - 1);
}

struct OtherForm {
    std::string of;
    std::string form;
    PhraseMatcher matcher;
    std::size_t gain = 0;
};

std::vector<OtherForm> otherForms(const StoryQuery& query) {
    std::vector<OtherForm> forms;
    for (const auto& term : query.anyTerms) {
        auto form = otherFormOf(term);
        if (form.empty() || std::ranges::find(query.anyTerms, form) != query.anyTerms.end())
            continue;
        PhraseMatcher matcher(form);
        forms.push_back({.of = term, .form = std::move(form), .matcher = std::move(matcher)});
    }
    return forms;
}

/// Counts the stories of a preview.
class PreviewCounter {
public:
    PreviewCounter(const BeatDraft& draft, Instant now)
        : draft_(draft),
          whole_(draft.whole()),
          query_(whole_.compiled()),
          scanned_(draft.scanned().compiled()),
          forms_(otherForms(whole_)),
          now_(now) {
        for (const auto& term : whole_.anyTerms) {
            words_.push_back({.word = term});
            matchers_.emplace_back(term);
            alone_.push_back(0);
        }
    }

    void add(const PanelStory& story) {
        const auto age = now_ - story.story->publishedAt;
        const auto day = static_cast<std::size_t>(
            std::max<std::int64_t>(0, std::chrono::floor<std::chrono::days>(age).count()));
        if (day >= BeatPreview::kDays) return;
        const auto facts = StoryFacts::of(*story.story);
        const auto text = PhraseMatcher::normalize(story.story->title) + " \n " +
                          PhraseMatcher::normalize(story.story->summary);
        if (query_.matches(facts)) {
            count(story, facts, text, day);
        } else if (scanned_.matches(facts)) {
            for (auto& form : forms_) form.gain += form.matcher.matches(text) ? 1 : 0;
        }
    }

    BeatPreview preview() && {
        if (!draft_.typed.empty() && words_.size() > 1)
            preview_.gain = {.word = words_.back().word, .stories = alone_.back()};
        const auto most = std::ranges::max_element(forms_, {}, &OtherForm::gain);
        if (most != forms_.end() && most->gain > 0) {
            preview_.otherForm = {.word = most->form, .stories = most->gain};
            preview_.otherFormOf = most->of;
        }
        const auto heaviest = std::ranges::max_element(alone_);
        if (words_.size() > 1 && preview_.stories >= kManyStories &&
            static_cast<double>(*heaviest) >=
                kTooMuchShare * static_cast<double>(preview_.stories)) {
            const auto& word = words_[static_cast<std::size_t>(heaviest - alone_.begin())];
            preview_.tooMuch = {.word = word.word, .stories = *heaviest};
        }
        preview_.words = std::move(words_);
        std::ranges::stable_sort(preview_.words, std::greater{}, &BeatPreview::Word::stories);
        return std::move(preview_);
    }

private:
    void count(const PanelStory& story, const StoryFacts& facts, std::string_view text,
               std::size_t day) {
        ++preview_.stories;
        ++preview_.perDay[BeatPreview::kDays - 1 - day];
        std::size_t mentioned = 0;
        std::size_t last = 0;
        for (std::size_t i = 0; i < words_.size(); ++i) {
            if (!matchers_[i].matches(text)) continue;
            ++words_[i].stories;
            ++mentioned;
            last = i;
        }
        if (mentioned == 1) ++alone_[last];
        if (preview_.matches.size() < BeatPreview::kMostMatches) {
            preview_.matches.push_back({.mention = StoryMention::of(story),
                                        .summary = story.story->summary,
                                        .marks = query_.marks(facts)});
        }
    }

    const BeatDraft& draft_;
    StoryQuery whole_;
    CompiledStoryQuery query_;
    CompiledStoryQuery scanned_;
    std::vector<BeatPreview::Word> words_;
    std::vector<PhraseMatcher> matchers_;
    std::vector<std::size_t> alone_;  ///< stories that mention no other word
    std::vector<OtherForm> forms_;
    Instant now_;
    BeatPreview preview_;
};

}  // namespace

StoryQuery BeatDraft::whole() const {
    auto result = query;
    if (const auto word = trimWhitespaceAndNewlines(typed); !word.empty())
        result.anyTerms.emplace_back(word);
    return result;
}

StoryQuery BeatDraft::scanned() const {
    auto scan = whole();
    for (auto& form : otherForms(scan)) scan.anyTerms.push_back(std::move(form.form));
    return scan;
}

BeatPreview beatPreview(const BeatDraft& draft, std::span<const PanelStory> stories, Instant now) {
    PreviewCounter counter(draft, now);
    for (const auto& story : stories) counter.add(story);
    return std::move(counter).preview();
}

}  // namespace kit
