#include "Tarnwick_Brell/Arguments/Arguments.h"

#include <algorithm>
#include <charconv>
#include <sstream>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

namespace arguments {

using Words = std::vector<std::string>;

struct Option::Rules {
    bool mayBeEmpty = false;
    std::vector<std::string> choices{};
    std::function<std::string(const std::string&)> complaint{};

    /// Throws UsageError.
    void require(const std::string& name, const std::string& value) const {
        if (value.empty() && !mayBeEmpty)
            throw UsageError(fmt::format("{} must not be empty.", name));
        if (!choices.empty() && std::ranges::find(choices, value) == choices.end()) {
            throw UsageError(
                fmt::format("{} must be {}, not \"{}\".", name, fmt::join(choices, " or "), value));
        }
        const auto found = complaint ? complaint(value) : std::string();
        if (!found.empty()) throw UsageError(fmt::format("{}: {}.", name, found));
    }
};

namespace {

/// The whole of `text`, or nothing.
template <class Number>
std::optional<Number> readNumber(const std::string& text) {
    Number number{};
    const auto* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

template <class Number>
std::function<std::string(const Words&)> takeNumber(Number& value, Range<Number> range) {
    return [&value, range](const Words& words) {
        const auto number = readNumber<Number>(words.front());
        // Also false for what is no number to compare with.
        if (!number || !(*number >= range.least && *number <= range.most)) {
            return fmt::format("must be {} from {} to {}, not \"{}\"",
                               std::is_integral_v<Number> ? "a whole number" : "a number",
                               range.least, range.most, words.front());
        }
        value = *number;
        return std::string();
    };
}

std::string nameOf(const CLI::Option& option) { return option.get_name(); }

/// "brell sources add".
std::string fullName(const CLI::App& app) {
    const auto* parent = app.get_parent();
    return parent ? fullName(*parent) + " " + app.get_name() : app.get_name();
}

/// The subcommand that the words have led to.
const CLI::App& chosenOf(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? app : chosenOf(*chosen.front());
}

std::string unexpected(const CLI::App& app, const std::string& word) {
    const auto& command = chosenOf(app);
    const auto help = fmt::format("See {} --help.", fullName(command));
    if (word.starts_with("-")) return fmt::format("There is no option {}. {}", word, help);
    const bool hasSubcommands = !command.get_subcommands({}).empty();
    return hasSubcommands
               ? fmt::format("There is no subcommand {} {}. {}", fullName(command), word, help)
               : fmt::format("\"{}\" is one word too many. {}", word, help);
}

std::string missing(const CLI::App& app, const std::string& what) {
    const auto& command = chosenOf(app);
    const bool isSubcommand =
        command.get_require_subcommand_min() > 0 && command.get_subcommands().empty();
    return fmt::format("{} is missing. See {} --help.",
                       isSubcommand ? "A subcommand" : what.substr(0, what.find(' ')),
                       fullName(command));
}

/// "--before needs --all." of "--before requires --all".
std::string together(const std::string& text, const std::string& verb, const std::string& plain) {
    const auto at = text.find(verb);
    if (at == text.npos) return text + ".";
    return text.substr(0, at) + plain + text.substr(at + verb.size()) + ".";
}

/// "--limit: 1 required N missing", or "json was given a disallowed flag override".
std::string mismatch(const std::string& text) {
    const auto name = text.substr(0, text.find_first_of(": "));
    return name.starts_with("-") ? fmt::format("{} needs a value.", name)
                                 : fmt::format("--{} takes no value.", name);
}

/// The text of help or of the version, which the library prints when it is told to end.
std::string printed(const CLI::App& app, const CLI::ParseError& end) {
    std::ostringstream out;
    app.exit(end, out, out);
    return out.str();
}

/// "--name=" would take the word that follows.
void requireNoEmptyAssignment(const Words& words) {
    for (const auto& word : words) {
        if (word == "--") return;
        if (word.starts_with("--") && word.find('=') == word.size() - 1)
            throw UsageError(fmt::format("{} must not be empty.", word.substr(0, word.size() - 1)));
    }
}

}  // namespace

Option::Option(CLI::Option& option, std::shared_ptr<Rules> rules)
    : option_(&option), rules_(std::move(rules)) {}

Option Option::shownAs(const std::string& placeholder) {
    option_->type_name(placeholder);
    return *this;
}

Option Option::required() {
    option_->required();
    return *this;
}

Option Option::mayBeEmpty() {
    rules_->mayBeEmpty = true;
    return *this;
}

Option Option::mayLackValue() {
    option_->expected(0, 1);
    return mayBeEmpty();
}

Option Option::oneOf(std::vector<std::string> choices) {
    rules_->choices = std::move(choices);
    return *this;
}

Option Option::checked(std::function<std::string(const std::string&)> complaint) {
    rules_->complaint = std::move(complaint);
    return *this;
}

Option Option::excludes(Option other) {
    option_->excludes(other.option_);
    return *this;
}

Option Option::needs(Option other) {
    option_->needs(other.option_);
    return *this;
}

bool Option::isGiven() const { return option_->count() > 0; }

Command Command::subcommand(const std::string& name, const std::string& help) {
    if (app_->get_require_subcommand_min() == 0) app_->require_subcommand(0, 1);
    return Command(*app_->add_subcommand(name, help));
}

void Command::requireSubcommand() { app_->require_subcommand(1); }

Option Command::flag(const std::string& name, bool& value, const std::string& help) {
    auto* option = app_->add_flag_callback(
        name, [&value] { value = true; }, help);
    option->disable_flag_override();
    return {*option, std::make_shared<Option::Rules>()};
}

Option Command::add(const std::string& name, bool isList, Take take, const std::string& help) {
    auto rules = std::make_shared<Option::Rules>();
    const auto shown = std::make_shared<std::string>();
    auto* option = app_->add_option(
        name,
        [rules, shown, isList, take](const Words& words) {
            if (!isList && words.size() > 1)
                throw UsageError(fmt::format("{} can be given only once.", *shown));
            for (const auto& word : words) rules->require(*shown, word);
            const auto complaint = take(words);
            if (!complaint.empty()) throw UsageError(fmt::format("{} {}.", *shown, complaint));
            return true;
        },
        help);
    *shown = nameOf(*option);
    option->type_name("TEXT")->type_size(1);
    option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    if (!isList) {
        option->expected(1);
    } else {
        option->expected(1, CLI::detail::expected_max_vector_size);
        option->allow_extra_args(option->get_positional());
    }
    return {*option, std::move(rules)};
}

Option Command::option(const std::string& name, std::string& value, const std::string& help) {
    return add(
        name, false,
        [&value](const Words& words) {
            value = words.front();
            return std::string();
        },
        help);
}

Option Command::option(const std::string& name, std::optional<std::string>& value,
                       const std::string& help) {
    return add(
        name, false,
        [&value](const Words& words) {
            value = words.front();
            return std::string();
        },
        help);
}

Option Command::option(const std::string& name, std::optional<std::filesystem::path>& value,
                       const std::string& help) {
    return add(
               name, false,
               [&value](const Words& words) {
                   value = words.front();
                   return std::string();
               },
               help)
        .shownAs("FILE");
}

Option Command::option(const std::string& name, std::vector<std::string>& values,
                       const std::string& help) {
    return add(
        name, true,
        [&values](const Words& words) {
            values = words;
            return std::string();
        },
        help);
}

Option Command::number(const std::string& name, std::int64_t& value, Range<std::int64_t> range,
                       const std::string& help) {
    const auto added = add(name, false, takeNumber(value, range), help).shownAs("N");
    if (added.option_->nonpositional()) added.option_->default_str(std::to_string(value));
    return added;
}

Option Command::number(const std::string& name, std::optional<std::int64_t>& value,
                       const std::string& help) {
    return add(
               name, false,
               [&value](const Words& words) {
                   value = readNumber<std::int64_t>(words.front());
                   return value ? std::string()
                                : fmt::format("must be a whole number, not \"{}\"", words.front());
               },
               help)
        .shownAs("N");
}

Option Command::number(const std::string& name, double& value, Range<double> range,
                       const std::string& help) {
    const auto added = add(name, false, takeNumber(value, range), help).shownAs("N");
    added.option_->default_str(fmt::format("{}", value));
    return added;
}

void Command::footer(const std::string& text) { app_->footer(text); }

void Command::whenChosen(std::function<void()> action) {
    app_->callback([app = app_, action = std::move(action)] {
        if (app->get_subcommands().empty()) action();
    });
}

Parser::Parser(const std::string& program, const std::string& description)
    : app_(std::make_unique<CLI::App>(description, program)) {
    // Subcommands take this over, so that the program's own options may follow them.
    app_->fallthrough();
}

Parser::~Parser() = default;

void Parser::setVersion(const std::string& text) { app_->set_version_flag("--version", text); }

Command Parser::root() { return Command(*app_); }

std::optional<std::string> Parser::parse(int count, const char* const* words) {
    requireNoEmptyAssignment(Words(words + std::min(count, 1), words + count));
    try {
        app_->parse(count, words);
        return std::nullopt;
    } catch (const CLI::Success& end) {
        return printed(*app_, end);
    } catch (const CLI::RequiredError& error) {
        const auto unknown = app_->remaining(true);
        throw UsageError(unknown.empty() ? missing(*app_, error.what())
                                         : unexpected(*app_, unknown.front()));
    } catch (const CLI::ExtrasError&) {
        throw UsageError(unexpected(*app_, app_->remaining(true).front()));
    } catch (const CLI::ExcludesError& error) {
        throw UsageError(together(error.what(), " excludes ", " can't be given with "));
    } catch (const CLI::RequiresError& error) {
        throw UsageError(together(error.what(), " requires ", " needs "));
    } catch (const CLI::ArgumentMismatch& error) {
        throw UsageError(mismatch(error.what()));
    } catch (const CLI::ParseError& error) {
        throw UsageError(fmt::format("The command line can't be read ({}).", error.what()));
    }
}

}  // namespace arguments
