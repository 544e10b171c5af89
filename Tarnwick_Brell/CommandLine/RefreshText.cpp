#include "Tarnwick_Brell/CommandLine/RefreshText.h"

#include <chrono>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using app::SourceOutcome;

constexpr std::string_view kNoStories = "no stories in it";

std::string_view outcomeName(SourceOutcome::Kind kind) {
    switch (kind) {
        case SourceOutcome::Kind::stories: return "stories";
        case SourceOutcome::Kind::unchanged: return "unchanged";
        case SourceOutcome::Kind::failed: return "failed";
        case SourceOutcome::Kind::notDue: return "notDue";
        case SourceOutcome::Kind::paused: return "paused";
        case SourceOutcome::Kind::cancelled: return "cancelled";
    }
    return "";
}

std::string outcomeText(const SourceOutcome& outcome) {
    switch (outcome.kind) {
        case SourceOutcome::Kind::stories: {
            if (outcome.isEmpty) return std::string(kNoStories);
            std::string text = outcome.merged.added > 0
                                   ? fmt::format("{} new", outcome.merged.added)
                                   : "nothing new";
            if (outcome.merged.bulk) text += " in bulk";
            if (outcome.merged.revised > 0)
                text += fmt::format(", {} revised", outcome.merged.revised);
            return text;
        }
        case SourceOutcome::Kind::unchanged: return "unchanged";
        case SourceOutcome::Kind::failed: return "failed: " + printable(outcome.error.value_or(""));
        case SourceOutcome::Kind::notDue: {
            const auto pause = std::chrono::duration<double>(outcome.source.minimumInterval);
            return fmt::format("not fetched: at most every {:.0f} min", pause.count() / 60);
        }
        case SourceOutcome::Kind::paused:
            return "not fetched: its server accepts requests again after " +
                   momentText(*outcome.pausedUntil);
        case SourceOutcome::Kind::cancelled: return "cancelled";
    }
    return {};
}

}  // namespace

void printReport(Session& session, const app::PassReport& report) {
    const auto& outcomes = report.outcomes;
    std::size_t columns = 0;
    for (const auto& outcome : outcomes)
        columns = std::max(columns, columnsOf(printable(outcome.source.name)));
    app::MergeCount total;
    for (const auto& outcome : outcomes) {
        const std::string indent(columns + 2, ' ');
        const auto text = wrapped(outcomeText(outcome), session.out().width(), indent);
        session.out().line(padTo(printable(outcome.source.name), columns + 2) +
                           text.substr(indent.size()));
        if (outcome.record.movedTo) {
            session.out().line(fmt::format("{}  has moved to {}", std::string(columns, ' '),
                                           printable(kit::maskedSecrets(*outcome.record.movedTo))));
        }
        total += outcome.merged;
    }
    session.out().line(fmt::format("{} new {} from {} {}.", total.added,
                                   total.added == 1 ? "story" : "stories", outcomes.size(),
                                   outcomes.size() == 1 ? "source" : "sources"));
    if (report.clockSeemsWrong) session.out().line(app::kClockSeemsWrong);
}

void printReportJSON(Session& session, const app::PassReport& report) {
    boost::json::array sources;
    app::MergeCount total;
    for (const auto& outcome : report.outcomes) {
        total += outcome.merged;
        boost::json::object entry{
            {"id", outcome.source.id},
            {"name", outcome.source.name},
            {"outcome", outcomeName(outcome.kind)},
            {"added", outcome.merged.added},
            {"revised", outcome.merged.revised},
            {"status", kit::encode(outcome.status)},
            {"bytes", outcome.record.bytesOnWire},
            {"milliseconds",
             std::chrono::duration_cast<std::chrono::milliseconds>(outcome.record.elapsed)
                 .count()}};
        if (outcome.error) entry["error"] = *outcome.error;
        if (outcome.pausedUntil) entry["pausedUntil"] = kit::encode(*outcome.pausedUntil);
        if (outcome.merged.bulk) entry["bulk"] = true;
        if (outcome.isEmpty) entry["note"] = kNoStories;
        if (outcome.record.movedTo) entry["movedTo"] = *outcome.record.movedTo;
        sources.push_back(std::move(entry));
    }
    boost::json::object record{
        {"sources", std::move(sources)}, {"added", total.added}, {"revised", total.revised}};
    if (report.clockSeemsWrong) record["clockSeemsWrong"] = true;
    session.out().line(boost::json::serialize(record));
}

}  // namespace cli
