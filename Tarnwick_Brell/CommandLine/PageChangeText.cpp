#include "Tarnwick_Brell/CommandLine/PageChangeText.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <boost/json/array.hpp>
#include <fmt/format.h>

#include "NewsroomKit/Pages/WordDiff.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

namespace cli {

namespace {

using kit::PageRun;

constexpr std::size_t kWidestChange = 100;

struct RunMarks {
    std::string_view begin;
    std::string_view end;
};

RunMarks marksOf(PageRun::Kind kind) {
    switch (kind) {
        case PageRun::Kind::removed: return {"[-", "-]"};
        case PageRun::Kind::added: return {"{+", "+}"};
        case PageRun::Kind::same: break;
    }
    return {};
}

std::string shownWord(const Output& out, PageRun::Kind kind, std::string_view word) {
    switch (kind) {
        case PageRun::Kind::removed: return out.red(word);
        case PageRun::Kind::added: return out.green(word);
        case PageRun::Kind::same: break;
    }
    return std::string(word);
}

/// Wraps by words, since what colours them has no width.
void printRuns(Output& out, const std::vector<PageRun>& runs) {
    const auto width = std::min(out.width(), kWidestChange);
    std::string line;
    std::size_t columns = 0;
    for (const auto& run : runs) {
        const auto marks = marksOf(run.kind);
        const auto text = printable(run.text);
        const auto words = kit::wordsOf(text);
        for (std::size_t i = 0; i < words.size(); ++i) {
            const auto word = fmt::format("{}{}{}", i == 0 ? marks.begin : "", words[i],
                                          i + 1 == words.size() ? marks.end : "");
            const auto needed = columnsOf(word);
            if (columns > 0 && columns + 1 + needed > width) {
                out.line(line);
                line.clear();
                columns = 0;
            }
            if (columns > 0) line += ' ';
            line += shownWord(out, run.kind, word);
            columns += needed + (columns > 0 ? 1 : 0);
        }
    }
    out.line(line);
}

}  // namespace

void printPageChanges(Output& out, const std::vector<kit::PageChangeRow>& changes) {
    for (const auto& change : changes) {
        out.line();
        if (!change.headings.empty())
            out.line(out.dim(printable(fmt::format("{}", fmt::join(change.headings, " › ")))));
        if (change.runs.empty()) {
            out.line(wrapped(printable(change.sentence), std::min(out.width(), kWidestChange), ""));
        } else {
            printRuns(out, change.runs);
        }
    }
}

boost::json::object changeObject(const kit::PageChangeRow& change) {
    boost::json::array runs;
    for (const auto& run : change.runs)
        runs.push_back({{"kind", kit::rawValue(run.kind)}, {"text", run.text}});
    return {{"kind", kit::rawValue(change.kind)},
            {"headings", kit::encode(change.headings)},
            {"words", change.words},
            {"sentence", change.sentence},
            {"runs", std::move(runs)}};
}

}  // namespace cli
