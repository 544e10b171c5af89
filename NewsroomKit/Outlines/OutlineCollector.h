#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "NewsroomKit/Outlines/Outlines.h"

namespace kit {

/// The attributes of an outline that are used, unchanged.
struct OutlineAttributes {
    std::string text{};   ///< the user's name for it
    std::string title{};  ///< the feed's own title
    std::string xmlURL{};
    std::string htmlURL{};
    std::string url{};  ///< of a link or an included list
};

/// Builds a list of feeds from the begin and end events of outlines.
class OutlineCollector {
public:
    void begin(const OutlineAttributes& attributes);
    void end();
    void setTitle(std::string_view html);

    std::size_t count() const { return count_; }
    Outlines take() { return std::move(outlines_); }

private:
    void skip(const OutlineAttributes& attributes, OutlineRefusal reason);
    void addFeed(const OutlineAttributes& attributes);

    Outlines outlines_;
    std::vector<std::string> open_;  ///< titles of the open outlines, as far as they count
    std::size_t depth_ = 0;
    std::size_t count_ = 0;
    std::unordered_set<std::string> known_;  ///< canonical addresses
};

}  // namespace kit
