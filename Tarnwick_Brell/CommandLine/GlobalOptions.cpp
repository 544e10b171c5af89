#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"

#include <string_view>

namespace cli {

namespace {

constexpr std::string_view kProgram = "brell ";

/// Quotes the word for a shell.
std::string quoted(const std::string& word) {
    constexpr std::string_view plain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+,:@%=";
    if (!word.empty() && word.find_first_not_of(plain) == word.npos) return word;
    std::string out = "'";
    for (const char c : word) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

std::string givenOptions(const GlobalOptions& options) {
    std::string text;
    if (options.demo) text += "--demo ";
    if (options.dataDir) text += "--data-dir " + quoted(options.dataDir->string()) + " ";
    return text;
}

/// Whether the "brell " at `at` begins a command for the user to type.
bool isAdvice(std::string_view sentence, std::size_t at) {
    const bool isWord =
        at == 0 || sentence[at - 1] == ' ' || sentence[at - 1] == '"' || sentence[at - 1] == '\n';
    const auto after = sentence.substr(at + kProgram.size());
    const bool isSubcommand =
        !after.empty() && ((after[0] >= 'a' && after[0] <= 'z') || after[0] == '-');
    return isWord && isSubcommand && !after.starts_with("watch");
}

}  // namespace

std::string withGivenOptions(const std::string& sentence, const GlobalOptions& options) {
    const auto given = givenOptions(options);
    if (given.empty()) return sentence;
    std::string out;
    std::size_t from = 0;
    for (auto at = sentence.find(kProgram); at != sentence.npos;
         at = sentence.find(kProgram, at + 1)) {
        if (!isAdvice(sentence, at)) continue;
        const auto end = at + kProgram.size();
        out += sentence.substr(from, end - from) + given;
        from = end;
    }
    return out + sentence.substr(from);
}

}  // namespace cli
