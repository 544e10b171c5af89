#include <algorithm>
#include <exception>
#include <iostream>
#include <memory>
#include <string>

#include <fmt/format.h>

#include "Tarnwick_Brell/Arguments/Suggestion.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli {

namespace {

using inspect::Kind;
namespace json = boost::json;

std::string answerLine(const Kind& kind, const std::string& line) {
    json::object answer;
    try {
        const auto input = kit::parseJSON(line);
        if (!input.is_object()) throw kit::RecordError("", "a JSON object is expected");
        answer = kind.answer(input.get_object());
    } catch (const std::exception& error) {
        answer = {{"error", error.what()}};
    }
    return json::serialize(answer);
}

int runInspect(Session& session, const Kind& kind) {
    std::ios::sync_with_stdio(false);
    for (std::string line; std::getline(std::cin, line);)
        session.out().line(answerLine(kind, line));
    if (std::cin.bad()) throw WorkFailed("Standard input can't be read.");
    return kDone;
}

std::string kindList() {
    std::string text = "Kinds, with the keys of their input:\n";
    for (const auto& kind : inspect::kinds())
        text += fmt::format("  {:<15}{}\n", kind.name, kind.takes);
    return text;
}

}  // namespace

void addInspectCommand(arguments::Command& app, Command& chosen) {
    auto name = std::make_shared<std::string>();
    auto command = app.subcommand(
        "inspect",
        "Apply the desk's rules to data: one JSON object per line of input, one answer per line");
    command.option("KIND", *name, "The rule to apply").required();
    command.footer(kindList());
    command.whenChosen([name, &chosen] {
        const auto all = inspect::kinds();
        const auto kind =
            std::find_if(all.begin(), all.end(), [&](const Kind& k) { return k.name == *name; });
        if (kind == all.end()) {
            std::vector<std::string> known;
            for (const Kind& other : all) known.emplace_back(other.name);
            throw arguments::UsageError(
                fmt::format("There is no kind named {}.{} See brell inspect --help.", *name,
                            arguments::didYouMean(*name, known)));
        }
        chosen = [kind](Session& session) { return runInspect(session, *kind); };
    });
}

}  // namespace cli
