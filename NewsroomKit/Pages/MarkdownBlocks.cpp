#include "NewsroomKit/Pages/MarkdownBlocks.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "NewsroomKit/Pages/PageCharacters.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::size_t deepestHeading = 6;

/// The text without the marks of nested lists before it: "* ", "- ", "+ ".
std::string_view withoutListMarks(std::string_view line) {
    while (line.size() > 1 && (line[0] == '*' || line[0] == '-' || line[0] == '+') &&
           line[1] == ' ') {
        line = line.substr(2);
    }
    return line;
}

/// "=====" or "-----" below a heading, or between paragraphs.
bool isRule(std::string_view line) {
    return line.size() > 2 && (line.find_first_not_of('=') == std::string_view::npos ||
                               line.find_first_not_of('-') == std::string_view::npos);
}

/// "[words](address)" at the start of a text.
struct MarkdownLink {
    std::string_view words;
    std::string_view address;
    std::size_t length;
};

std::optional<MarkdownLink> linkAt(std::string_view text) {
    int depth = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '[') ++depth;
        if (text[at] != ']' || --depth > 0) continue;
        if (at + 1 >= text.size() || text[at + 1] != '(') return std::nullopt;
        const auto end = text.find(')', at);
        if (end == std::string_view::npos) return std::nullopt;
        auto address = text.substr(at + 2, end - at - 2);
        address = address.substr(0, address.find(' '));
        return MarkdownLink{text.substr(1, at - 1), address, end + 1};
    }
    return std::nullopt;
}

void readMarkdown(std::string_view text, std::string& out, std::vector<PageLink>& links) {
    constexpr std::size_t mostLinks = 200;
    for (std::size_t at = 0; at < text.size();) {
        const bool isImage = text[at] == '!' && at + 1 < text.size() && text[at + 1] == '[';
        if ((text[at] == '[' || isImage) && links.size() < mostLinks) {
            if (const auto link = linkAt(text.substr(at + (isImage ? 1 : 0)))) {
                std::string words;
                std::vector<PageLink> inner;
                readMarkdown(link->words, words, inner);
                out += words;
                if (!isImage) links.push_back({std::move(words), std::string(link->address)});
                at += link->length + (isImage ? 1 : 0);
                continue;
            }
        }
        if (text[at] == '\\' && at + 1 < text.size()) {
            out += text[at + 1];
            at += 2;
        } else if (text[at] == '*') {
            ++at;
        } else if (text.substr(at).starts_with("__")) {
            at += 2;
        } else {
            out += text[at++];
        }
    }
}

std::string collapsed(std::string_view text) {
    PageText line;
    line.append(text);
    return line.take();
}

}  // namespace

std::vector<PageBlock> markdownBlocks(const std::vector<std::string>& lines) {
    std::vector<PageBlock> blocks;
    std::vector<std::pair<std::size_t, std::string>> headings;
    for (const auto& written : lines) {
        const auto line = collapsed(written);
        std::string_view rest = line;
        PageBlock block;
        const auto level = std::min(rest.find_first_not_of('#'), rest.size());
        const bool isHeading = level > 0 && level <= deepestHeading;
        rest = withoutListMarks(trimWhitespaceAndNewlines(isHeading ? rest.substr(level) : rest));
        std::string text;
        if (!isRule(rest)) readMarkdown(rest, text, block.links);
        block.text = collapsed(text);
        block.kind = isHeading ? PageBlock::Kind::heading : PageBlock::Kind::paragraph;
        if (isHeading) {
            block.level = static_cast<std::int64_t>(level);
            while (!headings.empty() && headings.back().first >= level) headings.pop_back();
        }
        for (const auto& [above, words] : headings) block.headings.push_back(words);
        if (isHeading) headings.emplace_back(level, block.text);
        blocks.push_back(std::move(block));
    }
    return blocks;
}

}  // namespace kit
