#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Pages/ArticleText.h"
#include "NewsroomKit/Pages/PageDiff.h"
#include "NewsroomKit/Pages/PageReader.h"

// Any page: nothing differs from itself, no block is empty, and a change has a sentence.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view html(reinterpret_cast<const char*>(data), size);
    const auto whole =
        kit::readPageText({.bytes = html, .url = "https://site.example/", .contentType = {}});
    const auto half = kit::readPageText(
        {.bytes = html.substr(size / 2), .url = "https://site.example/", .contentType = {}});
    for (const auto& block : whole.blocks) {
        if (block.text.empty()) std::abort();
    }
    if (kit::comparePages(whole.blocks, whole.blocks).verdict != kit::PageDiff::Verdict::same) {
        std::abort();
    }
    for (const auto& change : kit::comparePages(whole.blocks, half.blocks).changes) {
        if (change.sentence.empty()) std::abort();
    }
    kit::readArticle({.bytes = html, .url = "https://site.example/", .contentType = {}});
    return 0;
}
