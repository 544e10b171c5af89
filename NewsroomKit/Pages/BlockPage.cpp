#include "NewsroomKit/Pages/BlockPage.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::size_t longestBlockPage = 4'000;

/// Words that servers write on such pages. An article may quote them, but is longer.
constexpr std::array<std::string_view, 20> blockWords{
    "access denied",
    "access to this page has been denied",
    "reference #",
    "verify you are human",
    "verify that you are human",
    "verifying you are human",
    "are you a robot",
    "i'm not a robot",
    "you are not a robot",
    "just a moment...",
    "checking your browser",
    "checking if the site connection is secure",
    "enable javascript and cookies to continue",
    "please enable js and disable any ad blocker",
    "attention required! | cloudflare",
    "unusual traffic from your",
    "pardon our interruption",
    "request unsuccessful. incapsula",
    "press & hold to confirm",
    "complete the captcha",
};

}  // namespace

bool isBlockPage(std::string_view title, std::string_view text) {
    if (text.size() > longestBlockPage) return false;
    auto all = lowercasedASCII(title) + "\n" + lowercasedASCII(text);
    // "Just a moment…" and "I’m" are written both ways.
    for (const auto& [curly, plain] :
         {std::pair<std::string_view, std::string_view>{"…", "..."}, {"’", "'"}}) {
        for (auto at = all.find(curly); at != std::string::npos; at = all.find(curly, at)) {
            all.replace(at, curly.size(), plain);
        }
    }
    return std::any_of(blockWords.begin(), blockWords.end(), [&](std::string_view words) {
        return all.find(words) != std::string::npos;
    });
}

}  // namespace kit
