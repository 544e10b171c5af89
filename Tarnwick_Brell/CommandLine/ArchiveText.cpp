#include "Tarnwick_Brell/CommandLine/ArchiveText.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::ArchivedStory;
using kit::ArchivePage;
using kit::ArchiveStatus;
using kit::LenientInt;
using kit::ServerCredit;

std::string creditText(const ServerCredit& credit) {
    auto text = printable(credit.name);
    if (credit.platform) text += " on " + printable(*credit.platform);
    if (credit.postedAt) text += ", " + momentText(*credit.postedAt);
    if (credit.detail) text += " (“" + printable(*credit.detail) + "”)";
    return text;
}

void addNotes(TextTable& table, const ArchivedStory& story) {
    table.addNote(linkText(story.url));
    std::string credits;
    for (const auto& credit : story.credits.value_or(std::vector<ServerCredit>())) {
        credits += (credits.empty() ? "Credits " : "; ") + creditText(credit);
    }
    if (!credits.empty()) table.addNote(credits);
}

/// Which part of the period is shown, and how to see the next one.
std::string extentText(const ArchivePage& page) {
    const auto count = static_cast<std::int64_t>(page.items.size());
    if (count == 0 && page.total.value <= 0) return "The archive has no stories for this period.";
    if (count == 0) {
        return fmt::format("The archive has {} stories for this period, none after the first {}.",
                           page.total.value, page.offset.value);
    }
    const auto number = [&](std::size_t at) {
        return static_cast<std::uint64_t>(page.offset.value) + at;
    };
    auto text = fmt::format("Stories {} to {} of {}.", number(1), number(page.items.size()),
                            page.total.value);
    const auto next = number(page.items.size());
    if (page.total.value > 0 && next < static_cast<std::uint64_t>(page.total.value)) {
        text += fmt::format(" --offset {} shows the next ones.", next);
    }
    return text;
}

std::string figure(const std::optional<LenientInt>& count) {
    return count ? std::to_string(count->value) : "-";
}

std::string verdict(const ArchiveStatus& status) {
    if (status.complete) return "The archive is complete.";
    const auto behind = std::ranges::count_if(status.sources, [](const auto& source) {
        return source.waiting.value_or(LenientInt()).value > 0;
    });
    return fmt::format("The archive is not complete: {} of {} sources {} stories waiting.", behind,
                       status.sources.size(), behind == 1 ? "has" : "have");
}

}  // namespace

void printArchivePage(Output& out, const ArchivePage& page) {
    if (!page.items.empty()) {
        TextTable table({Column::cut("story", 24), Column::cut("outlet", 12).dropped(1),
                         Column::whole("published")});
        for (const auto& story : page.items) {
            table.add({printable(story.title), printable(story.sourceName),
                       publishedText(story.publishedAt, story.isDayOnly())});
            addNotes(table, story);
        }
        table.print(out);
        out.line();
    }
    out.line(extentText(page));
}

void printArchiveStatus(Output& out, const ArchiveStatus& status) {
    out.line(out.bold(verdict(status)));
    if (status.sources.empty()) return;
    out.line();
    TextTable table({Column::cut("source"), Column::whole("listed").dropped(2),
                     Column::whole("stored").dropped(1), Column::whole("waiting")});
    for (const auto& source : status.sources) {
        table.add({printable(source.name), figure(source.listed), figure(source.stored),
                   figure(source.waiting)});
    }
    table.print(out);
}

void printServerCredits(Output& out, const std::vector<std::string>& addresses,
                        const kit::ServerCredits& credits) {
    for (const auto& address : addresses) {
        out.line(out.bold(printable(kit::maskedLogins(address))));
        const auto found = credits.credits.find(address);
        if (found == credits.credits.end()) {
            const bool isPending =
                std::ranges::find(credits.pending, address) != credits.pending.end();
            out.line(isPending ? "  The archive has not read it yet."
                               : "  The archive does not know it.");
            continue;
        }
        if (found->second.empty()) out.line("  It has no credits.");
        for (const auto& credit : found->second) {
            out.line("  " + creditText(credit));
            if (credit.url) out.line("    " + linkText(*credit.url));
        }
    }
}

}  // namespace cli
