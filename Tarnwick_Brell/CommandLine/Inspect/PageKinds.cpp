#include <algorithm>
#include <string>
#include <vector>

#include "NewsroomKit/Pages/MarkdownBlocks.h"
#include "NewsroomKit/Pages/PageDiff.h"
#include "NewsroomKit/Pages/PageKeys.h"
#include "NewsroomKit/Pages/PageReader.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

namespace {

json::object failure(kit::PageProblem problem) {
    return {{"error", kit::rawValue(problem)}, {"description", kit::description(problem)}};
}

/// The blocks of one side of a comparison, and how each is written in the answer.
struct ComparedSide {
    std::vector<kit::PageBlock> blocks;
    std::vector<std::string> texts;
};

/// Lines come as "beforeText", a page's HTML as "before".
ComparedSide comparedSide(const json::object& input, const std::string& name) {
    ComparedSide side;
    if (const auto given = optional<std::vector<std::string>>(input, name + "Text")) {
        std::vector<std::string> lines;
        for (const auto& line : *given) {
            auto text = std::string(kit::trimWhitespaceAndNewlines(line));
            if (!text.empty()) lines.push_back(std::move(text));
        }
        side.blocks = kit::markdownBlocks(lines);
        side.texts = std::move(lines);
        return side;
    }
    const auto html = required<std::string>(input, name);
    const auto url = optional<std::string>(input, "url").value_or("");
    side.blocks = kit::readPageText({.bytes = html, .url = url, .contentType = {}}).blocks;
    for (const auto& block : side.blocks) side.texts.push_back(block.text);
    return side;
}

json::array addressesOf(const kit::PageBlock& block) {
    json::array addresses;
    for (const auto& link : block.links) addresses.emplace_back(link.url);
    return addresses;
}

json::object encoded(const kit::PageChange& change, const ComparedSide& before,
                     const ComparedSide& after) {
    const auto& block =
        change.after ? after.blocks[*change.after] : before.blocks[change.before.value()];
    json::object answer{{"kind", kit::rawValue(change.kind)},
                        {"headings", kit::encode(block.headings)}};
    const bool isOfLinks = change.kind == kit::PageChange::Kind::links;
    const auto add = [&](std::string_view key, const ComparedSide& side, std::size_t place) {
        if (isOfLinks) {
            answer[key] = addressesOf(side.blocks[place]);
        } else {
            answer[key] = side.texts[place];
        }
    };
    if (change.before) add("before", before, *change.before);
    if (change.after) add("after", after, *change.after);
    answer["words"] = change.words;
    answer["sentence"] = change.sentence;
    return answer;
}

}  // namespace

json::object page(const json::object& input) {
    const auto html =
        input.contains("html") ? required<std::string>(input, "html") : document(input);
    const auto url = optional<std::string>(input, "url").value_or("");
    const auto contentType = optional<std::string>(input, "contentType").value_or("");
    const auto status = optional<std::int64_t>(input, "status").value_or(200);
    const auto read = kit::readPage({.bytes = html,
                                     .url = url,
                                     .contentType = contentType,
                                     .status = static_cast<int>(status)});
    if (!read) return failure(read.error());
    const auto& page = read.value();
    const auto keys = kit::pageKeys(page.blocks);
    json::object answer{{"title", page.title},
                        {"blocks", kit::encode(page.blocks)},
                        {"key", keys.key},
                        {"orderKey", keys.orderKey}};
    if (page.modified) {
        answer["modified"] = kit::encode(*page.modified, DateStyle::secondsSince1970);
    }
    return answer;
}

json::object pageDiff(const json::object& input) {
    const auto before = comparedSide(input, "before");
    const auto after = comparedSide(input, "after");
    const auto diff = kit::comparePages(before.blocks, after.blocks);
    json::array changes;
    for (const auto& change : diff.changes) changes.push_back(encoded(change, before, after));
    return {{"verdict", kit::rawValue(diff.verdict)}, {"changes", std::move(changes)}};
}

}  // namespace cli::inspect
