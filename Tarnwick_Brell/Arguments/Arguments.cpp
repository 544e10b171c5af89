#include "Tarnwick_Brell/Arguments/Arguments.h"

#include <algorithm>
#include <charconv>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "Tarnwick_Brell/Arguments/HelpText.h"
#include "Tarnwick_Brell/Arguments/Suggestion.h"

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

template <class Value>
std::function<std::string(const Words&)> storeWord(Value& value) {
    return [&value](const Words& words) {
        value = words.front();
        return std::string();
    };
}

template <class Number>
std::function<std::string(const Words&)> storeNumber(Number& value, Range<Number> range) {
    return [&value, range](const Words& words) {
        const auto number = readNumber<Number>(words.front());
        // NaN fails the comparison too.
        if (!number || !(*number >= range.least && *number <= range.most)) {
            return fmt::format("must be {} from {} to {}, not \"{}\"",
                               std::is_integral_v<Number> ? "a whole number" : "a number",
                               range.least, range.most, words.front());
        }
        value = *number;
        return std::string();
    };
}

/// "brell sources add".
std::string fullName(const CLI::App& app) {
    const auto* parent = app.get_parent();
    return parent ? fullName(*parent) + " " + app.get_name() : app.get_name();
}

/// The innermost subcommand that was chosen.
const CLI::App& chosenOf(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? app : chosenOf(*chosen.front());
}

/// Every option that may follow the command, including those of the commands above it.
Words optionNames(const CLI::App& command) {
    Words names;
    for (const auto* app = &command; app; app = app->get_parent()) {
        for (const auto* option : app->get_options()) {
            if (option->nonpositional()) names.push_back(option->get_name());
        }
    }
    return names;
}

Words subcommandNames(const CLI::App& command) {
    Words names;
    for (const auto* subcommand : command.get_subcommands({}))
        names.push_back(subcommand->get_name());
    return names;
}

std::string unexpected(const CLI::App& app, const std::string& word) {
    const auto& command = chosenOf(app);
    const auto name = fullName(command);
    if (word.starts_with("-")) {
        return fmt::format("There is no option {}.{} See {} --help.", word,
                           didYouMean(word, optionNames(command)), name);
    }
    const auto known = subcommandNames(command);
    return known.empty() ? fmt::format("\"{}\" is one word too many. See {} --help.", word, name)
                         : fmt::format("There is no subcommand {} {}.{} See {} --help.", name, word,
                                       didYouMean(word, known), name);
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
std::string conflictText(const std::string& text, const std::string& verb,
                         const std::string& plain) {
    const auto at = text.find(verb);
    if (at == text.npos) return text + ".";
    return text.substr(0, at) + plain + text.substr(at + verb.size()) + ".";
}

/// "--limit: 1 required N missing", or "json was given a disallowed flag override".
std::string mismatchText(const std::string& text) {
    const auto name = text.substr(0, text.find_first_of(": "));
    return name.starts_with("-") ? fmt::format("{} needs a value.", name)
                                 : fmt::format("--{} takes no value.", name);
}

/// The help entry of an option: "--limit N" and its meaning with default and conflicts.
Help::Entry helpOf(const CLI::Option& option) {
    auto name = option.get_positional() ? option.get_name(true) : option.get_name(false, true);
    if (const auto comma = name.find(','); comma != name.npos) name.insert(comma + 1, " ");
    const bool isFlag = option.get_type_size() == 0 || option.get_expected_max() == 0;
    if (option.nonpositional() && !isFlag) name += " " + option.get_type_name();
    auto meaning = option.get_description();
    if (!option.get_default_str().empty())
        meaning += fmt::format(" (default {})", option.get_default_str());
    if (option.nonpositional() && option.get_required()) meaning += " (required)";
    for (const auto* other : option.get_needs())
        meaning += fmt::format(" (with {})", other->get_name());
    for (const auto* other : option.get_excludes())
        meaning += fmt::format(" (not with {})", other->get_name());
    return {.name = std::move(name), .meaning = std::move(meaning)};
}

std::string usageOf(const CLI::App& command) {
    auto usage = fullName(command) + " [OPTIONS]";
    for (const auto* option : command.get_options()) {
        if (!option->get_positional()) continue;
        auto name = option->get_name(true);
        if (option->get_expected_max() > 1) name += "...";
        usage += option->get_required() ? " " + name : " [" + name + "]";
    }
    if (command.get_subcommands({}).empty()) return usage;
    return usage + (command.get_require_subcommand_min() > 0 ? " SUBCOMMAND" : " [SUBCOMMAND]");
}

Help helpOf(const CLI::App& command) {
    Help help{.description = command.get_description() + ".", .usage = usageOf(command)};
    if (help.description.ends_with("..")) help.description.pop_back();
    Help::Section arguments{.title = "Arguments"}, options{.title = "Options"},
        subcommands{.title = "Subcommands"};
    for (const auto* option : command.get_options()) {
        (option->get_positional() ? arguments : options).entries.push_back(helpOf(*option));
    }
    for (const auto* subcommand : command.get_subcommands({}))
        subcommands.entries.push_back({subcommand->get_name(), subcommand->get_description()});
    help.sections = {subcommands, arguments, options};
    help.footer = command.get_footer();
    if (command.get_parent()) {
        const auto* program = command.get_parent();
        while (program->get_parent()) program = program->get_parent();
        help.footer += fmt::format("{}{} --help lists the options that every subcommand takes.",
                                   help.footer.empty() ? "" : "\n\n", program->get_name());
    }
    return help;
}

/// Refuses "--name=", which would otherwise consume the next word.
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
    auto* added = app_->add_subcommand(name, help);
    // A subcommand would otherwise inherit this command's footer.
    added->footer("");
    return Command(*added);
}

void Command::requireSubcommand() { app_->require_subcommand(1); }

Option Command::flag(const std::string& name, bool& value, const std::string& help) {
    auto* option = app_->add_flag_callback(name, [&value] { value = true; }, help);
    option->disable_flag_override();
    return {*option, std::make_shared<Option::Rules>()};
}

Option Command::add(const std::string& name, bool isList, Store store, const std::string& help) {
    auto rules = std::make_shared<Option::Rules>();
    const auto shown = std::make_shared<std::string>();
    auto* option = app_->add_option(
        name,
        [rules, shown, isList, store](const Words& words) {
            if (!isList && words.size() > 1)
                throw UsageError(fmt::format("{} can be given only once.", *shown));
            for (const auto& word : words) rules->require(*shown, word);
            const auto complaint = store(words);
            if (!complaint.empty()) throw UsageError(fmt::format("{} {}.", *shown, complaint));
            return true;
        },
        help);
    *shown = option->get_name();
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
    return add(name, false, storeWord(value), help);
}

Option Command::option(const std::string& name, std::optional<std::string>& value,
                       const std::string& help) {
    return add(name, false, storeWord(value), help);
}

Option Command::option(const std::string& name, std::optional<std::filesystem::path>& value,
                       const std::string& help) {
    return add(name, false, storeWord(value), help).shownAs("FILE");
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
    const auto added = add(name, false, storeNumber(value, range), help).shownAs("N");
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
    const auto added = add(name, false, storeNumber(value, range), help).shownAs("N");
    added.option_->default_str(fmt::format("{}", value));
    return added;
}

Option Command::number(const std::string& name, std::optional<double>& value, Range<double> range,
                       const std::string& help) {
    const auto store = [&value, range](const Words& words) {
        double number = 0;
        auto complaint = storeNumber(number, range)(words);
        if (complaint.empty()) value = number;
        return complaint;
    };
    return add(name, false, store, help).shownAs("N");
}

void Command::footer(const std::string& text) { app_->footer(text); }

void Command::whenChosen(std::function<void()> action) {
    app_->callback([app = app_, action = std::move(action)] {
        if (app->get_subcommands().empty()) action();
    });
}

Parser::Parser(const std::string& program, const std::string& description)
    : app_(std::make_unique<CLI::App>(description, program)) {
    app_->set_help_flag("-h,--help", "Print this help and do nothing else");
    // Subcommands inherit this, so that the program's own options may follow them.
    app_->fallthrough();
}

Parser::~Parser() = default;

void Parser::setVersion(const std::string& text) { app_->set_version_flag("--version", text); }

Command Parser::root() { return Command(*app_); }

std::optional<std::string> Parser::parse(int count, const char* const* words, std::size_t width) {
    requireNoEmptyAssignment(Words(words + std::min(count, 1), words + count));
    try {
        app_->parse(count, words);
        return std::nullopt;
    } catch (const CLI::CallForVersion& version) {
        return version.what() + std::string("\n");
    } catch (const CLI::Success&) {
        return helpText(helpOf(chosenOf(*app_)), width);
    } catch (const CLI::RequiredError& error) {
        const auto unknown = app_->remaining(true);
        throw UsageError(unknown.empty() ? missing(*app_, error.what())
                                         : unexpected(*app_, unknown.front()));
    } catch (const CLI::ExtrasError&) {
        throw UsageError(unexpected(*app_, app_->remaining(true).front()));
    } catch (const CLI::ExcludesError& error) {
        throw UsageError(conflictText(error.what(), " excludes ", " can't be given with "));
    } catch (const CLI::RequiresError& error) {
        throw UsageError(conflictText(error.what(), " requires ", " needs "));
    } catch (const CLI::ArgumentMismatch& error) {
        throw UsageError(mismatchText(error.what()));
    } catch (const CLI::ParseError& error) {
        throw UsageError(fmt::format("The command line can't be read ({}).", error.what()));
    }
}

}  // namespace arguments
