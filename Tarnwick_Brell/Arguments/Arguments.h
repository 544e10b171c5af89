#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

/// The command lines of the programs: subcommands, options and their values. All options follow the
/// same rules: an empty value is refused unless the option allows it, a number has a range, and an
/// option with a single value can be given only once.
namespace arguments {

/// Wrong usage; what() is a sentence for the user.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

template <class Number>
struct Range {
    Number least;
    Number most;
};

/// An option ("--name") or a positional argument ("NAME") of a command. A handle: copies mean the
/// same option, and it lives as long as the parser.
class Option {
public:
    /// The placeholder for its value in the help.
    Option shownAs(const std::string& placeholder);
    Option required();
    Option mayBeEmpty();
    /// Allows "--name" without a value.
    Option mayLackValue();
    Option oneOf(std::vector<std::string> choices);
    /// `complaint` returns what is wrong with a value, or "" when it is valid.
    Option checked(std::function<std::string(const std::string&)> complaint);
    /// The two options can't be given together.
    Option excludes(Option other);
    Option needs(Option other);

    bool isGiven() const;

private:
    friend class Command;
    struct Rules;
    Option(CLI::Option& option, std::shared_ptr<Rules> rules);

    CLI::Option* option_;
    std::shared_ptr<Rules> rules_;
};

/// A program or one of its subcommands. A handle, as Option is. The values that options are
/// bound to must live until the command line has been read.
class Command {
public:
    Command subcommand(const std::string& name, const std::string& help);
    /// Makes it an error to name no subcommand.
    void requireSubcommand();

    Option flag(const std::string& name, bool& value, const std::string& help);
    Option option(const std::string& name, std::string& value, const std::string& help);
    Option option(const std::string& name, std::optional<std::string>& value,
                  const std::string& help);
    Option option(const std::string& name, std::optional<std::filesystem::path>& value,
                  const std::string& help);
    /// May be repeated; a positional one takes all following words.
    Option option(const std::string& name, std::vector<std::string>& values,
                  const std::string& help);
    /// The help shows the current `value` as the default.
    Option number(const std::string& name, std::int64_t& value, Range<std::int64_t> range,
                  const std::string& help);
    Option number(const std::string& name, std::optional<std::int64_t>& value,
                  const std::string& help);
    Option number(const std::string& name, double& value, Range<double> range,
                  const std::string& help);
    Option number(const std::string& name, std::optional<double>& value, Range<double> range,
                  const std::string& help);

    /// A paragraph at the end of the help.
    void footer(const std::string& text);
    /// Called when this command is chosen and none of its subcommands is.
    void whenChosen(std::function<void()> action);

private:
    friend class Parser;
    explicit Command(CLI::App& app) : app_(&app) {}

    /// Stores the values of one option; returns what is wrong with them, or "".
    using Store = std::function<std::string(const std::vector<std::string>&)>;
    Option add(const std::string& name, bool isList, Store store, const std::string& help);

    CLI::App* app_;
};

/// Reads the words that a program was started with.
class Parser {
public:
    Parser(const std::string& program, const std::string& description);
    ~Parser();

    /// Adds --version, which prints `text`.
    void setVersion(const std::string& text);
    Command root();

    /// Reads the words. Returns the help or version text, in lines of `width` columns, when that
    /// was requested. Throws UsageError.
    std::optional<std::string> parse(int count, const char* const* words,
                                     std::size_t width = kHelpWidth);
    static constexpr std::size_t kHelpWidth = 80;

private:
    std::unique_ptr<CLI::App> app_;
};

}  // namespace arguments
