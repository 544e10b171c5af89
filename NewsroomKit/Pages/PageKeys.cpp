#include "NewsroomKit/Pages/PageKeys.h"

#include <algorithm>
#include <cstdint>

#include <fmt/format.h>

#include "NewsroomKit/Pages/PageNoise.h"

namespace kit {
namespace {

/// FNV-1a: the same on every machine, since keys are stored.
std::string keyOf(const std::vector<std::string>& texts) {
    constexpr std::uint64_t prime = 0x100000001b3;
    std::uint64_t hash = 0xcbf29ce484222325;
    const auto add = [&](char c) { hash = (hash ^ static_cast<unsigned char>(c)) * prime; };
    for (const auto& text : texts) {
        for (const char c : text) add(c);
        add('\n');
    }
    return fmt::format("{:016x}", hash);
}

}  // namespace

PageKeys pageKeys(const std::vector<PageBlock>& blocks) {
    std::vector<std::string> texts;
    texts.reserve(blocks.size());
    for (const auto& block : blocks) texts.push_back(comparedText(block.text));
    PageKeys keys{.key = keyOf(texts), .orderKey = {}};
    std::sort(texts.begin(), texts.end());
    keys.orderKey = keyOf(texts);
    return keys;
}

std::string linksKey(const std::vector<PageBlock>& blocks) {
    std::vector<std::string> targets;
    for (const auto& block : blocks) {
        for (const auto& link : block.links) targets.push_back(comparedText(link.url));
    }
    return keyOf(targets);
}

}  // namespace kit
