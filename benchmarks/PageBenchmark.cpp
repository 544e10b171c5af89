// How long it takes to read a page of 140 kB, to compare two texts of 95,000 words, and what an
// hour of 200 followed pages costs, each of which is read twice. The best of several runs counts.
//
//     bench_pages

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include <fmt/core.h>

#include "NewsroomKit/Pages/PageReader.h"
#include "NewsroomKit/Pages/PageSummary.h"
#include "NewsroomKit/Pages/PageWatch.h"

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::size_t pageBytes = 140'000;
constexpr std::size_t textWords = 95'000;
constexpr std::size_t wordsOfParagraph = 60;
constexpr int followedPages = 200;
constexpr int looksAnHour = 2;

/// A word of its place, from a vocabulary of some thousands.
std::string word(std::size_t place) {
    static constexpr const char* syllables[] = {"ha", "ven",   "ti",  "de",
                                                "or", "chard", "lan", "tern"};
    std::string text;
    for (auto rest = place * 2654435761U % 4096 + 1; rest > 0; rest /= 8)
        text += syllables[rest % 8];
    return text;
}

std::string paragraph(std::size_t number) {
    std::string text;
    for (std::size_t i = 0; i < wordsOfParagraph; ++i)
        text += word(number * wordsOfParagraph + i) + ' ';
    return text;
}

/// As pages come: attributes, scripts and navigation around paragraphs.
std::string pageOf(std::size_t bytes) {
    std::string html = "<!doctype html><html lang=en><head><title>Rules</title></head><body><nav>";
    for (int i = 0; i < 80; ++i) html += fmt::format("<a href=\"/place/{}\">Place {}</a> ", i, i);
    html += "</nav><script>" + std::string(4'000, 'x') + "</script><main>";
    for (std::size_t i = 0; html.size() < bytes; ++i) {
        if (i % 6 == 0)
            html += fmt::format("<h2 id=\"part-{}\" class=\"typography\">Part {}</h2>", i, i);
        html += fmt::format(
            "<p class=\"body copy\" data-analytics-id=\"{:032x}\">{} <a "
            "href=\"/r/{}\">more</a>.</p>",
            i * 77'777, paragraph(i), i);
    }
    return html + "</main><footer>Imprint</footer></body></html>";
}

/// Every twentieth paragraph has another word, one is new and one is gone.
std::vector<kit::PageBlock> textOf(bool isLater) {
    std::vector<kit::PageBlock> blocks;
    for (std::size_t i = 0; i * wordsOfParagraph < textWords; ++i) {
        if (i == (isLater ? 700U : 300U)) continue;
        kit::PageBlock block;
        block.kind = kit::PageBlock::Kind::paragraph;
        block.text = paragraph(i);
        if (isLater && i % 20 == 0) block.text.insert(block.text.size() / 2, " not ");
        blocks.push_back(std::move(block));
    }
    return blocks;
}

Milliseconds best(const std::function<void()>& work) {
    constexpr int runs = 7;
    Milliseconds least{1e12};
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        work();
        least = std::min(least, Milliseconds(std::chrono::steady_clock::now() - start));
    }
    return least;
}

/// Every look reads the page whole, as if no server ever answered that it is unchanged.
void anHourOfLooks(const std::string& page) {
    for (int i = 0; i < followedPages; ++i) {
        kit::PageWatch watch;
        for (int look = 0; look < looksAnHour; ++look) {
            kit::PageVisit visit;
            visit.at = kit::Instant() + std::chrono::minutes(30 * look);
            visit.bytes = page;
            visit.url = "https://orchard.example/rules";
            visit.contentType = "text/html";
            if (kit::applyVisit(watch, visit).miss) std::abort();
        }
    }
}

}  // namespace

int main() {
    const auto page = pageOf(pageBytes);
    const auto read = best([&] {
        if (kit::readPageText({.bytes = page, .url = "https://orchard.example/", .contentType = {}})
                .blocks.empty())
            std::abort();
    });
    const auto before = textOf(false), after = textOf(true);
    const auto compared = best([&] {
        if (kit::comparePages(before, after).changes.empty()) std::abort();
    });
    const auto summed = best([&] {
        if (kit::pageSummary(before, after).changes.empty()) std::abort();
    });
    const auto start = std::clock();
    anHourOfLooks(page);
    const auto seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    fmt::print("read a page of {} bytes: {:.2f} ms\n", page.size(), read.count());
    fmt::print("compare two texts of {} words: {:.1f} ms, with their summary {:.1f} ms\n",
               textWords, compared.count(), summed.count());
    fmt::print("{} pages, {} looks an hour each: {:.2f} s, {:.4f} % of a core\n", followedPages,
               looksAnHour, seconds, seconds / 36);
}
