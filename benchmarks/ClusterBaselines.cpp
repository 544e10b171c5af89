#include "benchmarks/ClusterBaselines.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <numeric>
#include <set>
#include <string>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Folding.h"

namespace baselines {

namespace {

using Words = std::set<std::string>;

Words wordsOf(const std::string& title) {
    Words words;
    std::string word;
    for (const char c : kit::fold(title) + " ") {
        const bool isInside = kit::isASCIIAlphanumeric(c) || static_cast<unsigned char>(c) >= 0x80;
        if (isInside) {
            word += c;
        } else if (!word.empty()) {
            words.insert(std::exchange(word, {}));
        }
    }
    return words;
}

std::vector<Words> allWords(const test::LabelledHeadlines& labelled) {
    std::vector<Words> all;
    for (const auto& story : labelled.stories) all.push_back(wordsOf(story.title));
    return all;
}

template <class Alike>
Parts chained(const test::LabelledHeadlines& labelled, Alike areAlike) {
    const auto& stories = labelled.stories;
    Parts parts(stories.size());
    std::iota(parts.begin(), parts.end(), std::size_t{0});
    for (std::size_t i = 0; i < stories.size(); ++i) {
        for (std::size_t j = i + 1; j < stories.size(); ++j) {
            const auto apart = std::chrono::abs(stories[i].publishedAt - stories[j].publishedAt);
            if (parts[i] == parts[j] || apart > std::chrono::hours(48) || !areAlike(i, j)) continue;
            std::replace(parts.begin(), parts.end(), std::size_t{parts[j]}, std::size_t{parts[i]});
        }
    }
    return parts;
}

}  // namespace

Parts sameTitle(const test::LabelledHeadlines& labelled) {
    const auto words = allWords(labelled);
    return chained(labelled, [&](std::size_t i, std::size_t j) { return words[i] == words[j]; });
}

Parts jaccard(const test::LabelledHeadlines& labelled, double least) {
    const auto words = allWords(labelled);
    return chained(labelled, [&](std::size_t i, std::size_t j) {
        const auto common = static_cast<double>(
            std::count_if(words[i].begin(), words[i].end(),
                          [&](const auto& word) { return words[j].contains(word); }));
        return common >= least * (static_cast<double>(words[i].size() + words[j].size()) - common);
    });
}

Parts tfidf(const test::LabelledHeadlines& labelled, double least) {
    const auto words = allWords(labelled);
    std::map<std::string, double> weights;
    for (const auto& title : words) {
        for (const auto& word : title) ++weights[word];
    }
    for (auto& [word, weight] : weights) {
        weight = std::log(static_cast<double>(words.size()) / weight);
    }
    std::vector<double> lengths;
    for (const auto& title : words) {
        lengths.push_back(std::sqrt(std::accumulate(
            title.begin(), title.end(), 0.0,
            [&](double sum, const auto& word) { return sum + weights[word] * weights[word]; })));
    }
    return chained(labelled, [&](std::size_t i, std::size_t j) {
        double shared = 0;
        for (const auto& word : words[i]) {
            if (words[j].contains(word)) shared += weights[word] * weights[word];
        }
        return shared >= least * lengths[i] * lengths[j];
    });
}

}  // namespace baselines
