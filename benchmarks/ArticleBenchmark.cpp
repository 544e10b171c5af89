// How well and how fast the text of articles is read: over a folder of saved pages, NAME.html, each
// with its readable text, NAME.txt. Texts are compared as multisets of words.
//
//     bench_articles FOLDER [--show NAME]

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <fmt/core.h>

#include "NewsroomKit/Pages/ArticleText.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace {

using WordCounts = std::map<std::string, int>;

struct PageScore {
    std::string name;
    double precision = 0;
    double recall = 0;
    double f1 = 0;
    double milliseconds = 0;
    std::size_t bytes = 0;
};

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Scripts without spaces between words count by the character.
bool standsAlone(char32_t c) { return (c >= 0x3040 && c <= 0x9FFF) || c >= 0x20000; }

WordCounts wordCounts(const std::string& text) {
    WordCounts counts;
    std::string word;
    const auto finish = [&] {
        if (!word.empty()) ++counts[kit::fold(word)];
        word.clear();
    };
    for (std::size_t at = 0; at < text.size();) {
        const auto decoded = kit::decodeUTF8(text, at);
        const bool isWord = kit::isLetter(decoded.value) || kit::isNumber(decoded.value);
        if (!isWord || standsAlone(decoded.value)) finish();
        if (isWord) word += text.substr(at, decoded.length);
        if (standsAlone(decoded.value)) finish();
        at += decoded.length;
    }
    finish();
    return counts;
}

double total(const WordCounts& counts) {
    double sum = 0;
    for (const auto& [word, count] : counts) sum += count;
    return sum;
}

std::string textOf(const kit::ArticleResult& article) {
    if (!article) return {};
    std::string text;
    for (const auto& block : article.value().blocks) text += block.text + "\n";
    return text;
}

PageScore score(const std::filesystem::path& page) {
    constexpr int runs = 5;
    const auto bytes = contentOf(page);
    auto expectedPath = page;
    const auto expected = wordCounts(contentOf(expectedPath.replace_extension(".txt")));
    PageScore result{.name = page.stem().string(), .bytes = bytes.size()};
    std::string text;
    result.milliseconds = 1e9;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        text = textOf(
            kit::readArticle({.bytes = bytes, .url = "https://site.example/", .contentType = {}}));
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        result.milliseconds = std::min(result.milliseconds, took.count());
    }
    const auto found = wordCounts(text);
    double common = 0;
    for (const auto& [word, count] : found) {
        const auto same = expected.find(word);
        if (same != expected.end()) common += std::min(count, same->second);
    }
    result.precision = total(found) == 0 ? 0 : common / total(found);
    result.recall = total(expected) == 0 ? 0 : common / total(expected);
    const double sum = result.precision + result.recall;
    result.f1 = sum == 0 ? 0 : 2 * result.precision * result.recall / sum;
    return result;
}

void print(const std::vector<PageScore>& scores) {
    PageScore mean;
    for (const auto& one : scores) {
        fmt::print("{:32} precision {:.3f}  recall {:.3f}  F1 {:.3f}  {:7.2f} ms  {:7} bytes\n",
                   one.name, one.precision, one.recall, one.f1, one.milliseconds, one.bytes);
        mean.precision += one.precision;
        mean.recall += one.recall;
        mean.f1 += one.f1;
        mean.milliseconds += one.milliseconds;
        mean.bytes += one.bytes;
    }
    const auto count = static_cast<double>(scores.size());
    fmt::print("\n{} pages: precision {:.3f}, recall {:.3f}, F1 {:.3f}; {:.2f} ms for 140 kB\n",
               scores.size(), mean.precision / count, mean.recall / count, mean.f1 / count,
               mean.milliseconds * 140'000.0 / static_cast<double>(mean.bytes));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        fmt::print(stderr, "Usage: bench_articles FOLDER [--show NAME]\n");
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    if (argc > 3) {
        const auto bytes = contentOf(folder / (std::string(argv[3]) + ".html"));
        fmt::print("{}", textOf(kit::readArticle(
                             {.bytes = bytes, .url = "https://site.example/", .contentType = {}})));
        return 0;
    }
    std::vector<PageScore> scores;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".html") scores.push_back(score(entry.path()));
    }
    if (scores.empty()) {
        fmt::print(stderr, "The folder has no pages.\n");
        return 1;
    }
    std::sort(scores.begin(), scores.end(),
              [](const auto& a, const auto& b) { return a.f1 < b.f1; });
    print(scores);
    return 0;
}
