#include "Tarnwick_Brell/CommandLine/TraceText.h"

#include <algorithm>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Panels/TraceContent.h"
#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Presentation/TraceText.h"

namespace cli {

namespace {

using kit::TraceTreeRow;
using Tree = std::vector<TraceTreeRow>;

/// Of each row, whether no later one stands below the same line.
std::vector<bool> lastOfTheirLines(const Tree& tree) {
    std::vector<bool> isLast(tree.size());
    std::vector<bool> isContinued(kit::kDeepestTrace + 1);
    for (auto i = tree.size(); i-- > 0;) {
        const auto depth = static_cast<std::ptrdiff_t>(tree[i].depth);
        isLast[i] = !isContinued[tree[i].depth];
        isContinued[tree[i].depth] = true;
        std::fill(isContinued.begin() + depth + 1, isContinued.end(), false);
    }
    return isLast;
}

std::string headOf(Output& out, const Tree& tree, const TraceTreeRow& row) {
    const auto when = row.publishedAt ? publishedText(*row.publishedAt, row.isDayOnly)
                                      : std::string("at an unknown time");
    auto head = out.bold(app::outletText(row).toStdString()) + "  " + when;
    const auto reference = app::referenceText(row, app::parentOf(tree, row));
    if (!reference.isEmpty()) head += "  " + reference.toStdString();
    if (!row.isReadable) head += "  (its page can't be read)";
    if (row.isAsked) head += "  ← the story you asked about";
    return head;
}

void printTree(Output& out, const Tree& tree) {
    constexpr std::size_t narrowest = 20;
    const auto isLast = lastOfTheirLines(tree);
    // What stands to the left of the nodes at each depth: the lines of those above that go on.
    std::vector<std::string> margins(kit::kDeepestTrace + 2);
    for (std::size_t i = 0; i < tree.size(); ++i) {
        const auto& row = tree[i];
        const bool isRoot = row.depth == 0;
        const auto fork = isRoot ? "" : isLast[i] ? "└─ " : "├─ ";
        const auto trunk = isRoot ? "" : isLast[i] ? "   " : "│  ";
        margins[row.depth + 1] = margins[row.depth] + trunk;
        const auto indent = margins[row.depth + 1] + "  ";
        const auto title = printable(row.title);
        const auto room = out.width() - std::min(columnsOf(indent), out.width());

        if (isRoot) out.line();
        out.line(margins[row.depth] + fork + headOf(out, tree, row));
        if (!title.empty()) out.line(indent + cutTo(title, std::max(room, narrowest)));
        out.line(indent + linkText(row.url));
    }
}

}  // namespace

void printTrace(Output& out, const kit::TraceResult& trace, const std::string& asked) {
    const auto searched =
        trace.searched ? fmt::format(" {} sources were searched.", trace.searched->value) : "";
    if (trace.nodes.empty()) {
        out.line("No outlet is known to have published it." + searched);
        return;
    }
    out.line(fmt::format("{} {} published it.{}", trace.nodes.size(),
                         trace.nodes.size() == 1 ? "outlet" : "outlets", searched));
    printTree(out, kit::traceTree(trace.nodes, asked));
}

}  // namespace cli
