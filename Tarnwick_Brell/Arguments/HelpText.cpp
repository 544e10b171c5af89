#include "Tarnwick_Brell/Arguments/HelpText.h"

#include <algorithm>
#include <sstream>

namespace arguments {

namespace {

constexpr std::size_t kIndent = 2;

/// Counts code points, because the programs' own texts have no wide characters.
std::size_t columnsOf(const std::string& text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

/// The column of the meanings: after all names except very long ones.
std::size_t meaningColumn(const Help& help, std::size_t width) {
    const auto most = width / 3;
    std::size_t longest = 0;
    for (const auto& section : help.sections) {
        for (const auto& entry : section.entries) {
            const auto columns = columnsOf(entry.name) + kIndent + 2;
            if (columns <= most) longest = std::max(longest, columns);
        }
    }
    return std::max(longest, std::min<std::size_t>(most, 16));
}

std::string entryText(const Help::Entry& entry, std::size_t column, std::size_t width) {
    std::string text = std::string(kIndent, ' ') + entry.name;
    const auto used = kIndent + columnsOf(entry.name);
    if (entry.meaning.empty()) return text + "\n";
    // The meaning of a name that is too long follows on the next line.
    text += used + 2 > column ? "\n" + std::string(column, ' ') : std::string(column - used, ' ');
    return text + inLines(entry.meaning, width, column, column) + "\n";
}

std::string paragraphs(const std::string& text, std::size_t width) {
    std::istringstream lines(text);
    std::string out;
    for (std::string line; std::getline(lines, line);) {
        const bool isOfList = line.starts_with(' ');
        out += (isOfList ? line : inLines(line, width, 0, 0)) + "\n";
    }
    return out;
}

}  // namespace

std::string inLines(const std::string& text, std::size_t width, std::size_t indent,
                    std::size_t used) {
    std::istringstream words(text);
    std::string out;
    bool begins = true;
    for (std::string word; words >> word;) {
        const auto columns = columnsOf(word);
        if (!begins && used + 1 + columns > width) {
            out += "\n" + std::string(indent, ' ');
            used = indent;
        } else if (!begins) {
            out += ' ';
            ++used;
        }
        out += word;
        used += columns;
        begins = false;
    }
    return out;
}

std::string helpText(const Help& help, std::size_t width) {
    const auto column = meaningColumn(help, width);
    auto text = paragraphs(help.description, width);
    text += "\n" + inLines("Usage: " + help.usage, width, kIndent * 2, 0) + "\n";
    for (const auto& section : help.sections) {
        if (section.entries.empty()) continue;
        text += "\n" + section.title + ":\n";
        for (const auto& entry : section.entries) text += entryText(entry, column, width);
    }
    if (!help.footer.empty()) text += "\n" + paragraphs(help.footer, width);
    return text;
}

}  // namespace arguments
