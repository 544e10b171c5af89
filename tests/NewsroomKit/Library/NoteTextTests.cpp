#include <gtest/gtest.h>

#include <array>
#include <ctime>

#include "NewsroomKit/Library/Note.h"
#include "NewsroomKit/Library/NoteText.h"

namespace kit {
namespace {

/// "h2 <b>bold</b>": the kind, depths and mark of a block, and its spans in tags.
std::string drawn(const NoteBlock& block) {
    static constexpr std::array kinds{"p", "h", "code", "rule"};
    static constexpr std::array marks{"", "-", "#", "[ ]", "[x]"};
    std::string text = kinds[static_cast<std::size_t>(block.kind)];
    if (block.level > 0) text += std::to_string(block.level);
    if (block.quoteDepth > 0) text += " >" + std::to_string(block.quoteDepth);
    if (block.listDepth > 0) text += " list" + std::to_string(block.listDepth);
    if (block.mark != NoteMark::none)
        text += std::string(" ") + marks[static_cast<std::size_t>(block.mark)];
    if (block.number > 0) text += std::to_string(block.number);
    text += ": ";
    for (const auto& span : block.spans) {
        std::string tags;
        if (span.isEmphasised) tags += 'i';
        if (span.isStrong) tags += 'b';
        if (span.isCode) tags += 'c';
        if (span.isStruck) tags += 's';
        if (!span.link.empty()) tags += '@' + span.link;
        text += tags.empty() ? span.text : '{' + tags + ' ' + span.text + '}';
    }
    return text;
}

std::vector<std::string> drawnAll(std::string_view markdown) {
    std::vector<std::string> lines;
    for (const auto& block : noteBlocks(markdown)) lines.push_back(drawn(block));
    return lines;
}

using Lines = std::vector<std::string>;

TEST(NoteText, ReadsBlocksWithTheirDepths) {
    EXPECT_EQ(drawnAll("# Head *line*\n\ntext\nmore  \nbreak\n\n---\n"),
              (Lines{"h1: Head {i line}", "p: text more\nbreak", "rule: "}));
    EXPECT_EQ(drawnAll("- one\n  - [x] two\n  - [ ] three\n\n3. a\n4. b\n\n   again\n-\n"),
              (Lines{"p list1 -: one", "p list2 [x]: two", "p list2 [ ]: three", "p list1 #3: a",
                     "p list1 #4: b", "p list1: again", "p list1 -: "}));
    EXPECT_EQ(drawnAll("> said\n> > - deep\n\n```\nx *y*\n\n  z\n```\n"),
              (Lines{"p >1: said", "p >2 list1 -: deep", "code: x *y*\n\n  z"}));
}

TEST(NoteText, ReadsSpansInsideEachOther) {
    EXPECT_EQ(drawnAll("a **b *c* d** `e*f*` ~~g~~ &amp; \\*h\\*"),
              Lines{"p: a {b b }{ib c}{b  d} {c e*f*} {s g} & *h*"});
    EXPECT_EQ(drawnAll("[**a** b](https://x.example/?q=1&amp;r) ![pic](y.png)"),
              Lines{"p: {b@https://x.example/?q=1&r a}{@https://x.example/?q=1&r  b} pic"});
}

TEST(NoteText, KeepsOnlyLinksOfTheWebAndOfMail) {
    EXPECT_EQ(drawnAll("[a](javascript:x) [b](file:///etc) [c](mailto:d@e.example) "
                       "<ftp://f.example> [g](&#106;avascript:x) https://h.example/_i_/x"),
              Lines{"p: a b {@mailto:d@e.example c} ftp://f.example g "
                    "{@https://h.example/_i_/x https://h.example/_i_/x}"});
}

TEST(NoteText, ShowsHTMLAsTextAndNoControls) {
    EXPECT_EQ(drawnAll("<b>x</b> <script>\n\na\x01\x1b[31mb\u202Ec &#x202e;&#27;d\xff"),
              (Lines{"p: <b>x</b> <script>", "p: a[31mbc d\uFFFD"}));
}

TEST(NoteText, StaysQuickAndBoundedOnHostileText) {
    const auto repeated = [](std::string_view part) {
        std::string text;
        while (text.size() < kMostBytesOfNote) text += part;
        return text + "END";
    };
    for (const std::string_view part :
         {"[", "[a](", "> ", "- ", "*a **b_", "`a``", "https://a.b/(", "a@", "<", "&#", "- > 1. ",
          "[a]: b\n", "*a**b\n", "\xe2\x80"}) {
        const auto begun = std::clock();
        const auto blocks = noteBlocks(repeated(part));
        EXPECT_LT(std::clock() - begun, CLOCKS_PER_SEC) << part;
        for (const auto& block : blocks) {
            ASSERT_LE(block.quoteDepth, kDeepestNoteBlock);
            ASSERT_LE(block.listDepth, kDeepestNoteBlock);
        }
        if (!blocks.empty() && !blocks.back().spans.empty()) {
            EXPECT_EQ(blocks.back().spans.back().text.find("END"), std::string::npos) << part;
        }
    }
}

}  // namespace
}  // namespace kit
