#include "NewsroomKit/Alerts/PhraseIndex.h"

#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

/// The letters and digits at `from`, of which the text may have more in front.
std::string_view wordAt(std::string_view text, std::size_t from) {
    auto end = from;
    while (end < text.size() && isASCIIAlphanumeric(text[end])) ++end;
    return text.substr(from, end - from);
}

}  // namespace

std::size_t PhraseIndex::add(PhraseMatcher phrase) {
    const auto [known, isNew] = numbers_.try_emplace(phrase.phrase, phrases_.size());
    if (!isNew) return known->second;
    const auto number = phrases_.size();
    const std::string first(phrase.isBounded() ? wordAt(phrase.phrase, 0) : std::string_view());
    if (first.empty()) {
        others_.push_back(number);
    } else {
        byFirstWord_[first].push_back(number);
    }
    phrases_.push_back(std::move(phrase));
    return number;
}

void PhraseIndex::find(std::string_view text, std::vector<bool>& mentioned) const {
    for (const auto number : others_) {
        if (!mentioned[number]) mentioned[number] = phrases_[number].matches(text);
    }
    if (byFirstWord_.empty()) return;
    for (std::size_t at = 0; at < text.size();) {
        const auto word = wordAt(text, at);
        if (word.empty()) {
            ++at;
            continue;
        }
        if (const auto known = byFirstWord_.find(word); known != byFirstWord_.end()) {
            for (const auto number : known->second) {
                const auto& phrase = phrases_[number].phrase;
                if (!mentioned[number] && text.compare(at, phrase.size(), phrase) == 0)
                    mentioned[number] = standsAsWords(text, at, at + phrase.size());
            }
        }
        at += word.size();
    }
}

}  // namespace kit
