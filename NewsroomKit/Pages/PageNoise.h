#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// A part of a text that differs each time a page is served, without saying anything.
struct PageNoise {
    std::size_t begin;
    std::size_t end;
};

/// Numbers of versions in addresses ("?v=…"), nonces, 16 and more hexadecimal digits, times to the
/// second, "5 minutes ago", years of copyright, counts of views. Dates, prices and versions are
/// none. In order, without overlaps.
std::vector<PageNoise> pageNoise(std::string_view text);

/// The text by which blocks are compared: noise as "#", curly quotation marks straight.
std::string comparedText(std::string_view text);

}  // namespace kit
