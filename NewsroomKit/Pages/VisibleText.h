#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/PageTree.h"

namespace kit {

/// Which parts of a page are read, and how much text stands where.
class VisibleText {
public:
    /// Leaves out what the page hides from its readers.
    explicit VisibleText(const PageTree& tree);

    bool isDropped(PageTree::Index node) const { return dropped_[node] != 0; }
    /// Leaves out a node with all that it holds. The sizes are those before until remeasure().
    void drop(PageTree::Index node);
    void remeasure();

    /// Characters of the text inside, without white space.
    std::uint32_t size(PageTree::Index node) const { return sizes_[node]; }
    /// Those inside links.
    std::uint32_t linkSize(PageTree::Index node) const { return linkSizes_[node]; }
    double linkShare(PageTree::Index node) const {
        return sizes_[node] == 0 ? 0 : static_cast<double>(linkSizes_[node]) / sizes_[node];
    }

private:
    const PageTree* tree_;
    std::vector<std::uint8_t> dropped_;
    std::vector<std::uint32_t> own_;
    std::vector<std::uint32_t> sizes_;
    std::vector<std::uint32_t> linkSizes_;
};

/// Whether one of the words of a class attribute satisfies `accepts`.
template <class Accepts>
bool anyWord(std::string_view words, Accepts accepts) {
    while (!words.empty()) {
        const auto begin = words.find_first_not_of(" \t\r\n");
        if (begin == std::string_view::npos) return false;
        words = words.substr(begin);
        const auto end = std::min(words.find_first_of(" \t\r\n"), words.size());
        if (accepts(words.substr(0, end))) return true;
        words = words.substr(end);
    }
    return false;
}

}  // namespace kit
