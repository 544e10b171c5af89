#include "Tarnwick_Brell/CommandLine/TraceText.h"

#include <algorithm>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Stories/CanonicalLink.h"
#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

namespace cli {

namespace {

using kit::TraceNode;
using kit::TraceResult;

// Deeper nodes are drawn as if they were no deeper, so that lines stay readable.
constexpr std::size_t kDeepest = 8;

struct Branch {
    const TraceNode* node = nullptr;
    const TraceNode* parent = nullptr;
    std::size_t depth = 0;
    bool isLast = false;  ///< of those that hang below the same node
};

/// The service's depths may leave steps out; here, each node is at most one below the one
/// before it.
std::vector<Branch> branchesOf(const std::vector<TraceNode>& nodes) {
    std::vector<Branch> branches;
    std::vector<const TraceNode*> path;
    for (const auto& node : nodes) {
        const auto wanted =
            static_cast<std::size_t>(std::clamp<std::int64_t>(node.depth.value, 0, kDeepest));
        path.resize(std::min(wanted, path.size()));
        branches.push_back({&node, path.empty() ? nullptr : path.back(), path.size()});
        path.push_back(&node);
    }
    std::vector<bool> isContinued(kDeepest + 1);
    for (auto branch = branches.rbegin(); branch != branches.rend(); ++branch) {
        branch->isLast = !isContinued[branch->depth];
        isContinued[branch->depth] = true;
        std::fill(isContinued.begin() + static_cast<std::ptrdiff_t>(branch->depth) + 1,
                  isContinued.end(), false);
    }
    return branches;
}

std::string whoText(const TraceNode& node) {
    auto text = printable(node.publisher.value_or(""));
    if (text.empty()) text = "An unknown outlet";
    return node.platform ? text + " on " + printable(*node.platform) : text;
}

std::string whenText(const TraceNode& node) {
    const bool isKnown = node.precision != TraceNode::Precision::unknown && node.publishedAt;
    if (!isKnown) return "at an unknown time";
    return publishedText(*node.publishedAt, node.precision == TraceNode::Precision::day);
}

/// "linked as “according to Bloomberg”". Without the words, the name of what is referred to.
std::string relationText(const Branch& branch) {
    const auto& node = *branch.node;
    auto words = printable(node.note.value_or(""));
    std::string wording(node.relationWording());
    if (wording.empty()) {
        wording = printable(node.relation.value_or(""));
    } else if (words.empty() && branch.parent) {
        words = whoText(*branch.parent);
    }
    if (words.empty()) return wording;
    return (wording.empty() ? "" : wording + " ") + "“" + words + "”";
}

std::string headOf(Output& out, const Branch& branch, const std::string& asked) {
    const auto& node = *branch.node;
    auto head = out.bold(whoText(node)) + "  " + whenText(node);
    const auto relation = relationText(branch);
    if (!relation.empty()) head += "  " + relation;
    if (node.readable && !*node.readable) head += "  (its page can't be read)";
    if (kit::canonicalLink(node.url) == asked) head += "  ← the story you asked about";
    return head;
}

void printBranches(Output& out, const std::vector<Branch>& branches, const std::string& asked) {
    constexpr std::size_t narrowest = 20;
    // What stands to the left of the nodes at each depth: the lines of those above that go on.
    std::vector<std::string> margins(kDeepest + 2);
    for (const auto& branch : branches) {
        const auto depth = branch.depth;
        const bool isRoot = depth == 0;
        const auto fork = isRoot ? "" : branch.isLast ? "└─ " : "├─ ";
        const auto trunk = isRoot ? "" : branch.isLast ? "   " : "│  ";
        margins[depth + 1] = margins[depth] + trunk;
        const auto indent = margins[depth + 1] + "  ";
        const auto title = printable(branch.node->title.value_or(""));
        const auto room = out.width() - std::min(columnsOf(indent), out.width());

        if (isRoot) out.line();
        out.line(margins[depth] + fork + headOf(out, branch, asked));
        if (!title.empty()) out.line(indent + cutTo(title, std::max(room, narrowest)));
        out.line(indent + linkText(branch.node->url));
    }
}

}  // namespace

void printTrace(Output& out, const TraceResult& trace, const std::string& asked) {
    const auto searched =
        trace.searched ? fmt::format(" {} sources were searched.", trace.searched->value) : "";
    if (trace.nodes.empty()) {
        out.line("No outlet is known to have run it." + searched);
        return;
    }
    out.line(fmt::format("{} {} it.{}", trace.nodes.size(),
                         trace.nodes.size() == 1 ? "place ran" : "places ran", searched));
    printBranches(out, branchesOf(trace.nodes), kit::canonicalLink(asked));
}

}  // namespace cli
