#include <gtest/gtest.h>

#include "NewsroomKit/Panels/TraceContent.h"

namespace kit {
namespace {

std::vector<TraceNode> nodesOf(const std::vector<int>& depths) {
    std::vector<TraceNode> nodes;
    for (const int depth : depths) nodes.push_back({.kind = "story", .depth = {depth}});
    return nodes;
}

TEST(TraceTree, ANodeHangsBelowTheLastLessDeepOneWhateverDepthsAreLeftOut) {
    struct Case {
        std::vector<int> depths;
        const char* rows;  // depth and parent of each
    };
    const Case cases[] = {
        {{0, 1, 2, 1}, "0- 1<0 2<1 1<0 "},
        {{0, 2, 2}, "0- 1<0 1<0 "},
        {{0, 7, 3, 4}, "0- 1<0 1<0 2<2 "},
        {{3, 3, 1, 0, 5}, "0- 0- 0- 0- 1<3 "},
        {{-2, 0, 1}, "0- 0- 1<1 "},
        {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 9}, "0- 1<0 2<1 3<2 4<3 5<4 6<5 7<6 8<7 8<8 8<8 "},
        {{}, ""},
    };
    for (const auto& [depths, rows] : cases) {
        std::string text;
        for (const auto& row : traceTree(nodesOf(depths), "")) {
            text += std::to_string(row.depth) +
                    (row.parent ? "<" + std::to_string(*row.parent) : "-") + " ";
        }
        EXPECT_EQ(text, rows);
    }
}

TEST(TraceTree, ARowSaysWhatIsKnownOfItsNode) {
    const auto day = parseISO8601("2026-11-19T00:00:00Z");
    auto nodes = nodesOf({0, 1, 1});
    nodes[0].publisher = "Harbour on GULL";
    nodes[0].platform = "Gull";
    nodes[0].publishedAt = day;
    nodes[1].url = "https://Lantern.example/600?utm_source=x";
    nodes[1].platform = "Gull";
    nodes[1].publishedAt = day;
    nodes[1].precision = TraceNode::Precision::day;
    nodes[1].relation = "named";
    nodes[2].relation = "syndicated";
    nodes[2].readable = LenientBool{false};
    const auto rows = traceTree(nodes, "https://lantern.example/600");
    EXPECT_EQ(rows[0].platform, "") << "the name says it";
    EXPECT_EQ(rows[1].platform, "Gull");
    EXPECT_EQ(rows[0].publishedAt, std::nullopt) << "of unknown precision";
    EXPECT_EQ(rows[1].publishedAt, day);
    EXPECT_TRUE(rows[1].isDayOnly);
    EXPECT_EQ(rows[1].wording, TraceNode::kNamedAs);
    EXPECT_EQ(rows[2].wording, "");
    EXPECT_TRUE(rows[1].isAsked && !rows[2].isAsked);
    EXPECT_TRUE(rows[1].isReadable && !rows[2].isReadable);
}

}  // namespace
}  // namespace kit
