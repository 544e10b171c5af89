#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Panels/PagesContent.h"
#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/PageChangeText.h"
#include "Tarnwick_Brell/CommandLine/PagesActions.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"

namespace cli {

namespace {

using kit::PageRow;

constexpr std::size_t kShownRevisions = 1'000;

boost::json::object pageObject(const PageRow& row) {
    boost::json::object object{{"address", row.address},
                               {"name", row.name},
                               {"state", kit::rawValue(row.state)},
                               {"leftOut", row.leftOut.size()}};
    if (!row.id.empty()) object["id"] = row.id;
    const auto addTime = [&](const char* key, const std::optional<kit::Instant>& time) {
        if (time) object[key] = kit::encode(*time);
    };
    addTime("lookedAt", row.lookedAt);
    addTime("nextLook", row.nextLook);
    addTime("changedAt", row.changedAt);
    addTime("unchangedAt", row.unchangedAt);
    addTime("failingSince", row.failingSince);
    if (row.changedAt) {
        object["change"] = row.change;
        object["sentence"] = row.sentence;
    }
    if (!row.problem.empty()) {
        object["problem"] = row.problem;
        object["misses"] = row.misses;
    }
    return object;
}

std::string stateText(const PageRow& row) {
    if (row.state == PageRow::State::failing) return row.problem;
    if (row.state == PageRow::State::checking) return "differs; the next look decides";
    return row.changedAt ? row.change : std::string(label(row.state));
}

void printPages(Session& session, const std::vector<PageRow>& rows) {
    auto& out = session.out();
    TextTable table({Column::whole("changed"), Column::cut("page", 16), Column::cut("what", 14),
                     Column::whole("looked").dropped(1), Column::cut("address", 20).dropped(2)});
    for (const auto& row : rows) {
        table.add({row.changedAt ? momentText(*row.changedAt) : "–", printable(row.name),
                   printable(stateText(row)), row.lookedAt ? momentText(*row.lookedAt) : "–",
                   printable(row.address)});
    }
    table.print(out);
}

int listPages(Session& session, const PagesOptions& options) {
    std::vector<app::VisitedPage> visited;
    if (!options.stored) {
        visited = lookAtPages(session, options, [](app::LocalStore& store, const PagesOptions&) {
            return app::PageRounds::duePages(store, currentInstant());
        });
    }
    const auto rows = kit::pageRows(app::followedPages(session.storeForReading()), session.now());
    if (session.options().json) {
        boost::json::array pages, suggested;
        for (const auto& row : rows) pages.push_back(pageObject(row));
        for (const auto& page : kit::kSuggestedPages) {
            if (std::ranges::find(rows, page.address, &PageRow::address) == rows.end())
                suggested.push_back({{"name", page.name}, {"address", page.address}});
        }
        session.out().line(boost::json::serialize(
            boost::json::object{{"pages", std::move(pages)}, {"suggested", std::move(suggested)}}));
    } else if (rows.empty()) {
        session.advise(
            "No page is followed yet. brell pages add takes the address of one; with --suggested "
            "it adds those of Apple's that many people watch.");
    } else {
        printPages(session, rows);
    }
    return finishLooks(visited);
}

boost::json::object revisionObject(const kit::PageRevision& revision) {
    auto object = kit::encode(revision).get_object();
    object.erase("address");
    return object;
}

/// "Noticed 14:32, last seen unchanged 14:02. Apple's own date …"
std::string noticedText(const kit::PageRevision& revision) {
    auto text = "Noticed " + momentText(revision.seenAt);
    if (revision.unchangedAt) text += ", last seen unchanged " + momentText(*revision.unchangedAt);
    text += ".";
    if (revision.statedDay)
        text += " The page's own date: " + namedDayText(*revision.statedDay) + ".";
    return text;
}

}  // namespace

int showPage(Session& session, const PagesOptions& options) {
    auto& store = session.storeForReading();
    const auto status = pageIn(store, options.page);
    const auto revisions = store.pages().revisions(status.page.address, kShownRevisions);
    const auto& muted = status.state.volatileBlocks;
    auto& out = session.out();
    if (session.options().json) {
        auto object = pageObject(kit::pageRows({&status, 1}, session.now()).front());
        boost::json::array list, leftOut;
        for (const auto& revision : revisions) list.push_back(revisionObject(revision));
        for (const auto& block : muted) leftOut.emplace_back(block.sample);
        object["revisions"] = std::move(list);
        object["leftOut"] = std::move(leftOut);
        out.line(boost::json::serialize(object));
        return kDone;
    }
    out.line(out.bold(printable(status.page.name)));
    out.line(linkText(status.page.address));
    if (status.state.miss)
        out.line("The last look failed: " + std::string(label(*status.state.miss)));
    TextTable table({Column::whole("no."), Column::whole("seen"), Column::cut("what", 40)});
    for (const auto& revision : revisions) {
        table.add({std::to_string(revision.number), momentText(revision.seenAt),
                   printable(revision.sentence.empty() ? std::string(label(revision.kind))
                                                       : revision.sentence)});
    }
    table.print(out);
    for (std::size_t i = 0; i < muted.size(); ++i) {
        out.line(out.dim(fmt::format("Left out {}, as it differs at each look: {}", i + 1,
                                     printable(muted[i].sample))));
    }
    return kDone;
}

int diffPage(Session& session, const PagesOptions& options) {
    auto& store = session.storeForReading();
    const auto status = pageIn(store, options.page);
    const auto revisions = store.pages().revisions(status.page.address, kShownRevisions);
    if (revisions.size() < 2) throw WorkFailed("The page has one text only so far.");
    const auto from = options.from.value_or(revisions[1].number);
    const auto to = options.to.value_or(revisions[0].number);
    auto comparison = app::comparedRevisions(store, status.page.address, from, to);
    if (!comparison) throw WrongUsage("brell pages show lists the revisions of this page.");
    if (options.inOrder) comparison->changes = kit::inPageOrder(std::move(comparison->changes));
    const auto& last =
        *std::ranges::find(revisions, std::max(from, to), &kit::PageRevision::number);
    auto& out = session.out();
    if (session.options().json) {
        boost::json::array changes;
        for (const auto* list : {&comparison->changes, &comparison->small, &comparison->links}) {
            for (const auto& change : *list) changes.push_back(changeObject(change));
        }
        out.line(boost::json::serialize(
            boost::json::object{{"from", std::min(from, to)},
                                {"to", revisionObject(last)},
                                {"summary", kit::summarySentence(comparison->summary)},
                                {"moved", comparison->summary.moved},
                                {"changes", std::move(changes)}}));
        return kDone;
    }
    out.line(out.bold(printable(status.page.name)) + "  " +
             kit::changeCountText(comparison->summary));
    out.line(out.dim(noticedText(last)));
    printPageChanges(out, comparison->changes);
    printPageChanges(out, comparison->small);
    printPageChanges(out, comparison->links);
    return kDone;
}

namespace {

using SharedPagesOptions = std::shared_ptr<PagesOptions>;

arguments::Option addPageName(arguments::Command& command, const SharedPagesOptions& options) {
    return command.option("PAGE", options->page, "Its name or address");
}

}  // namespace

void addPagesCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<PagesOptions>();
    auto pages = app.subcommand("pages", "Web pages that you follow, and what changed on them");
    addStoredFlag(pages, options->stored);
    pages.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return listPages(session, *options); };
    });
    auto add = addAction(pages, chosen, options, "add", "Follow a page", addPage);
    add.option("ADDRESS", options->page, "The address of the page, of https");
    add.option("--name", options->name, "What you call it").shownAs("NAME");
    add.flag("--urgent", options->urgent, "Look every 10 minutes instead of every 30");
    add.flag("--suggested", options->suggested, "Follow the pages of Apple's that many watch");
    auto remove =
        addAction(pages, chosen, options, "remove", "Follow a page no longer", removePage);
    addPageName(remove, options).required();
    auto show = addAction(pages, chosen, options, "show", "The texts that a page had, a line each",
                          showPage);
    addPageName(show, options).required();
    auto diff = addAction(pages, chosen, options, "diff",
                          "What changed between two texts of a page", diffPage);
    addPageName(diff, options).required();
    diff.number("FROM", options->from, "The number of a text; the last but one without it");
    diff.number("TO", options->to, "The number of a later one; the last without it");
    diff.flag("--in-order", options->inOrder, "As in the page instead of the heaviest first");
    auto check = addAction(pages, chosen, options, "check", "Look at pages now", checkPages);
    addPageName(check, options);
    auto unmute = addAction(pages, chosen, options, "unmute",
                            "Compare a part again that was left out", unmutePage);
    addPageName(unmute, options).required();
    unmute.number("NUMBER", options->muted, {1, 1'000}, "The part's number in brell pages show")
        .required();
}

}  // namespace cli
