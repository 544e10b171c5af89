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

/// The command lines of the programs: subcommands, options and what they are given. The rules
/// that every option follows are kept here: an empty value is refused unless the option allows it,
/// a number says which range it must lie in, and one that takes a single value is given once.
namespace arguments {

/// The words make no sense; what() is a sentence for the user.
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
    /// The word that stands for its value in the help.
    Option shownAs(const std::string& placeholder);
    Option required();
    Option mayBeEmpty();
    /// "--name" alone is enough.
    Option mayLackValue();
    Option oneOf(std::vector<std::string> choices);
    /// `complaint` gives what is wrong with a value, nothing when it is good.
    Option checked(std::function<std::string(const std::string&)> complaint);
    /// Neither may be given with the other.
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
    /// Makes it wrong to name none of the subcommands.
    void requireSubcommand();

    Option flag(const std::string& name, bool& value, const std::string& help);
    Option option(const std::string& name, std::string& value, const std::string& help);
    Option option(const std::string& name, std::optional<std::string>& value,
                  const std::string& help);
    Option option(const std::string& name, std::optional<std::filesystem::path>& value,
                  const std::string& help);
    /// May be repeated; a positional one takes all words that follow.
    Option option(const std::string& name, std::vector<std::string>& values,
                  const std::string& help);
    /// What `value` holds is shown as the default.
    Option number(const std::string& name, std::int64_t& value, Range<std::int64_t> range,
                  const std::string& help);
    Option number(const std::string& name, std::optional<std::int64_t>& value,
                  const std::string& help);
    Option number(const std::string& name, double& value, Range<double> range,
                  const std::string& help);

    /// A paragraph at the end of the help.
    void footer(const std::string& text);
    /// Called when this command was chosen, and none of its subcommands.
    void whenChosen(std::function<void()> action);

private:
    friend class Parser;
    explicit Command(CLI::App& app) : app_(&app) {}

    /// Takes the values of one option; the sentence or "" when they are good.
    using Take = std::function<std::string(const std::vector<std::string>&)>;
    Option add(const std::string& name, bool isList, Take take, const std::string& help);

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

    /// The text to print instead of doing anything, which help and the version are, in lines of
    /// `width` columns. Throws UsageError.
    std::optional<std::string> parse(int count, const char* const* words,
                                     std::size_t width = kHelpWidth);
    static constexpr std::size_t kHelpWidth = 80;

private:
    std::unique_ptr<CLI::App> app_;
};

}  // namespace arguments
