#include "NewsroomKit/Panels/FindingContent.h"

#include <algorithm>
#include <set>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::size_t kMostLines = 400;
constexpr std::size_t kLongestLine = 400;
constexpr std::size_t kLinesAround = 2;
/// Lists with so many items have a line for each.
constexpr std::size_t kLeastItems = 3;
/// A longer line is no line that somebody wrote.
constexpr std::size_t kLongestWrittenLine = 2'000;

using StateLines = std::vector<StateLine>;

void addLine(StateLines& lines, std::string_view text, bool isChanged, std::size_t number = 0) {
    const auto begin = firstCharacters(text, kLongestLine);
    std::string shown = validUTF8(begin);
    if (begin.size() < text.size()) shown += "…";
    if (lines.size() < kMostLines) lines.push_back({number, std::move(shown), isChanged});
}

void addGap(StateLines& lines) {
    if (!lines.empty() && !lines.back().isGap && lines.size() < kMostLines)
        lines.push_back({.text = "…", .isGap = true});
}

std::vector<std::string> itemsOf(const std::string& value) {
    std::vector<std::string> items;
    std::size_t begin = 0;
    while (begin <= value.size()) {
        const auto end = std::min(value.find(", ", begin), value.size());
        items.push_back(value.substr(begin, end - begin));
        begin = end + 2;
    }
    return items;
}

void addEntry(StateLines& lines, const WatchedRecord& record) {
    addLine(lines, record.key, true);
    for (const auto& [name, value] : record.fields) {
        const auto items = itemsOf(value);
        const bool isList = items.size() >= kLeastItems;
        addLine(lines, "  " + name + ":" + (isList ? "" : " " + value), true);
        if (!isList) continue;
        for (const auto& item : items) addLine(lines, "    " + item, true);
    }
}

/// A list in the state beside another one: its own items, and some around them.
void addItems(StateLines& lines, const std::vector<std::string>& items,
              const std::vector<std::string>& others) {
    const std::set<std::string> known(others.begin(), others.end());
    std::vector<bool> isNear(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (known.contains(items[i])) continue;
        const auto first = i - std::min(i, kLinesAround);
        const auto last = std::min(i + kLinesAround + 1, items.size());
        std::fill(isNear.begin() + static_cast<std::ptrdiff_t>(first),
                  isNear.begin() + static_cast<std::ptrdiff_t>(last), true);
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (isNear[i] || items.size() <= 2 * kLinesAround) {
            addLine(lines, "    " + items[i], !known.contains(items[i]));
        } else {
            addGap(lines);
        }
    }
}

void addValue(StateLines& lines, const FieldChange& change, const std::optional<std::string>& value,
              const std::optional<std::string>& other) {
    if (!value) return;
    const auto items = itemsOf(*value);
    const auto others = itemsOf(other.value_or(""));
    if (!other || items.size() + others.size() < kLeastItems)
        return addLine(lines, "  " + change.field + ": " + *value, true);
    addLine(lines, "  " + change.field + ":", false);
    addItems(lines, items, others);
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// Breaks lines that are too long for one behind what ends a member or an item.
std::string withBreaks(std::string_view text) {
    std::string broken;
    broken.reserve(text.size() + text.size() / 16);
    for (const auto line : linesOf(text)) {
        const bool isLong = line.size() > kLongestWrittenLine;
        bool isQuoted = false;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const char c = line[i];
            if (c == '"' && (i == 0 || line[i - 1] != '\\')) isQuoted = !isQuoted;
            broken += c;
            if (isLong && !isQuoted && (c == ',' || c == '{' || c == '[' || c == '>'))
                broken += '\n';
        }
        broken += '\n';
    }
    return broken;
}

/// What the file calls an entry: the last word of its key, without the names of lists.
std::string_view entryWord(std::string_view key) {
    const auto space = key.find_last_of(" |");
    auto word = space == key.npos ? key : key.substr(space + 1);
    const auto value = word.rfind("/");
    if (key.find("://") == key.npos && value != word.npos && value + 1 < word.size() &&
        key.find(" | ") == key.npos && key.find("applinks") == key.npos) {
        word = word.substr(value + 1);
    }
    return word;
}

StateLines linesNaming(std::string_view text, const std::set<std::string_view>& words) {
    const auto broken = withBreaks(text);
    const auto lines = linesOf(broken);
    std::vector<bool> isNamed(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        isNamed[i] = std::ranges::any_of(
            words, [&](auto word) { return lines[i].find(word) != std::string_view::npos; });
    }
    StateLines shown;
    for (std::size_t i = 0; i < lines.size() && shown.size() < kMostLines; ++i) {
        const auto first = i - std::min(i, kLinesAround);
        const auto last = std::min(i + kLinesAround + 1, lines.size());
        const bool isNear = std::any_of(isNamed.begin() + static_cast<std::ptrdiff_t>(first),
                                        isNamed.begin() + static_cast<std::ptrdiff_t>(last),
                                        [](bool named) { return named; });
        if (isNear) {
            addLine(shown, lines[i], isNamed[i], i + 1);
        } else {
            addGap(shown);
        }
    }
    return shown;
}

}  // namespace

FindingSides entryLines(const BackendFinding& finding) {
    FindingSides sides;
    for (const auto& record : finding.removed) addEntry(sides.before, record);
    for (const auto& record : finding.added) addEntry(sides.after, record);
    const std::string* key = nullptr;
    for (const auto& change : finding.changed) {
        if (!key || *key != change.key) {
            addLine(sides.before, change.key, false);
            addLine(sides.after, change.key, false);
        }
        key = &change.key;
        addValue(sides.before, change, change.before, change.after);
        addValue(sides.after, change, change.after, change.before);
    }
    return sides;
}

FindingSides fileLines(const BackendFinding& finding, std::string_view before,
                       std::string_view after) {
    std::set<std::string_view> words;
    for (const auto& record : finding.added) words.insert(entryWord(record.key));
    for (const auto& record : finding.removed) words.insert(entryWord(record.key));
    for (const auto& change : finding.changed) words.insert(entryWord(change.key));
    words.erase("");
    return {linesNaming(before, words), linesNaming(after, words)};
}

bool matches(const BackendFinding& finding, const FindingFilter& filter) {
    const auto* file = watchedFile(finding.file);
    if (filter.subject && (!file || file->subject != *filter.subject)) return false;
    std::string text = finding.title + '\n' + std::string(file ? file->name : "");
    for (const auto& record : finding.added) text += '\n' + record.key;
    for (const auto& record : finding.removed) text += '\n' + record.key;
    for (const auto& change : finding.changed) text += '\n' + change.key;
    const auto folded = lowercasedASCII(text);
    std::string_view words = filter.words;
    while (!words.empty()) {
        const auto end = std::min(words.find(' '), words.size());
        if (folded.find(lowercasedASCII(words.substr(0, end))) == folded.npos) return false;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return true;
}

}  // namespace kit
