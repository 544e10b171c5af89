#include "NewsroomKit/Clusters/WordFrequencies.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

using Role = CommonWord::Role;

// clang-format off
constexpr std::string_view kFunctionWords[] = {
    "a", "about", "after", "again", "all", "almost", "already", "also", "an", "and", "any", "are",
    "as", "at", "be", "been", "before", "being", "but", "by", "can", "could", "did", "do", "does",
    "during", "else", "even", "ever", "every", "for", "from", "had", "has", "have", "he", "her",
    "here", "him", "his", "how", "i", "if", "in", "into", "is", "it", "its", "just", "like", "may",
    "me", "might", "more", "most", "much", "must", "my", "no", "not", "now", "of", "off", "on",
    "only", "or", "other", "our", "over", "own", "she", "should", "since", "so", "some", "soon",
    "still", "such", "than", "that", "the", "their", "them", "then", "there", "these", "they",
    "this", "those", "through", "to", "too", "under", "until", "up", "us", "very", "via", "vs",
    "was", "we", "were", "what", "when", "where", "which", "while", "who", "whose", "why", "will",
    "with", "without", "would", "yet", "you", "your",
    // Contractions without their apostrophe.
    "arent", "cant", "didnt", "doesnt", "dont", "heres", "ill", "isnt", "ive", "lets", "theres",
    "thats", "theyre", "wasnt", "weve", "whats", "whos", "wont", "youre", "youve",
};

constexpr CommonWord kCommonWords[] = {
    {"apple", 0.30},
    // Systems and devices.
    {"ios", 0.08, Role::system}, {"ipados", 0.02, Role::system}, {"macos", 0.04, Role::system},
    {"watchos", 0.02, Role::system}, {"tvos", 0.02, Role::system},
    {"visionos", 0.02, Role::system}, {"xcode", 0.01, Role::system},
    {"safari", 0.01, Role::system}, {"testflight", 0.005, Role::system},
    {"iphone", 0.12, Role::device}, {"ipad", 0.05, Role::device},
    {"macbook", 0.03, Role::device}, {"imac", 0.01, Role::device},
    {"airpods", 0.03, Role::device}, {"homepod", 0.01, Role::device},
    {"airtag", 0.01, Role::device},
    {"mac", 0.06}, {"watch", 0.03}, {"vision", 0.02}, {"tv", 0.03}, {"music", 0.02},
    {"siri", 0.03}, {"ai", 0.04}, {"intelligence", 0.02}, {"app", 0.06}, {"store", 0.03},
    {"icloud", 0.01}, {"pro", 0.06}, {"max", 0.03}, {"air", 0.03}, {"mini", 0.02},
    {"ultra", 0.02}, {"plus", 0.02}, {"series", 0.01}, {"studio", 0.01}, {"generation", 0.01},
    {"chip", 0.02}, {"display", 0.02}, {"camera", 0.02}, {"battery", 0.01}, {"google", 0.03},
    // Stages of a release.
    {"beta", 0.04, Role::stage}, {"rc", 0.005, Role::stage},
    {"candidate", 0.005, Role::stage, "rc"}, {"public", 0.01}, {"developer", 0.02},
    {"version", 0.02}, {"update", 0.05}, {"feature", 0.04}, {"fix", 0.01}, {"security", 0.02},
    // Words for announcing or releasing something.
    {"release", 0.08}, {"announce", 0.04, Role::plain, "release"},
    {"available", 0.02, Role::plain, "release"}, {"debut", 0.02, Role::plain, "release"},
    {"introduce", 0.02, Role::plain, "release"}, {"introducing", 0.02, Role::plain, "release"},
    {"issue", 0.02}, {"launch", 0.05, Role::plain, "release"},
    {"out", 0.03, Role::plain, "release"}, {"seed", 0.01, Role::plain, "release"},
    {"unveil", 0.02, Role::plain, "release"},
    // The language of reports.
    {"report", 0.08}, {"reportedly", 0.04, Role::plain, "report"}, {"say", 0.06},
    {"said", 0.03, Role::plain, "say"}, {"claim", 0.02, Role::plain, "say"},
    {"source", 0.02}, {"rumor", 0.05}, {"rumour", 0.02, Role::plain, "rumor"}, {"leak", 0.03},
    {"leaker", 0.02, Role::plain, "leak"}, {"analyst", 0.02}, {"hint", 0.01},
    {"suggest", 0.02}, {"reveal", 0.02}, {"bloomberg", 0.02}, {"gurman", 0.02}, {"kuo", 0.01},
    {"expect", 0.02}, {"plan", 0.03}, {"coming", 0.03}, {"come", 0.03}, {"set", 0.02},
    {"get", 0.05}, {"make", 0.03}, {"take", 0.02}, {"bring", 0.02}, {"use", 0.04}, {"user", 0.02},
    {"add", 0.03}, {"show", 0.02}, {"see", 0.02}, {"look", 0.03}, {"work", 0.02}, {"want", 0.02},
    {"need", 0.02}, {"know", 0.02}, {"help", 0.01}, {"let", 0.02}, {"give", 0.01}, {"go", 0.02},
    {"find", 0.01}, {"try", 0.01}, {"start", 0.02}, {"offer", 0.01}, {"change", 0.01},
    // Words that any headline may contain.
    {"new", 0.15}, {"first", 0.04}, {"next", 0.03}, {"last", 0.02}, {"latest", 0.02},
    {"best", 0.03}, {"top", 0.02}, {"big", 0.02}, {"good", 0.01}, {"better", 0.01}, {"old", 0.01},
    {"everything", 0.02}, {"thing", 0.03}, {"way", 0.02}, {"reason", 0.01}, {"tip", 0.01},
    {"year", 0.03}, {"month", 0.01}, {"week", 0.03}, {"day", 0.03}, {"today", 0.02},
    {"time", 0.02}, {"early", 0.01}, {"late", 0.01}, {"hand", 0.02}, {"review", 0.04},
    {"video", 0.03}, {"podcast", 0.03}, {"episode", 0.02}, {"news", 0.04}, {"story", 0.02},
    {"daily", 0.02}, {"weekly", 0.01}, {"live", 0.02}, {"deal", 0.03}, {"price", 0.02},
    {"free", 0.02}, {"one", 0.03}, {"people", 0.01}, {"company", 0.02}, {"tech", 0.02},
    {"device", 0.02}, {"design", 0.02}, {"model", 0.02}, {"support", 0.02}, {"percent", 0.01},
    {"million", 0.01}, {"billion", 0.01}, {"january", 0.01}, {"february", 0.01},
    {"march", 0.01}, {"april", 0.01}, {"june", 0.01}, {"july", 0.01}, {"august", 0.01},
    {"september", 0.01}, {"october", 0.01}, {"november", 0.01}, {"december", 0.01},
    {"spring", 0.01}, {"summer", 0.01}, {"fall", 0.01}, {"winter", 0.01},
};
// clang-format on

std::unordered_map<std::string_view, const CommonWord*> rowsByStem() {
    std::unordered_map<std::string_view, const CommonWord*> rows;
    for (const CommonWord& row : kCommonWords) rows.emplace(wordStem(row.word), &row);
    return rows;
}

template <std::size_t Count>
std::optional<unsigned> placeFrom(const std::array<std::string_view, Count>& names, unsigned first,
                                  std::string_view word) {
    const auto found = std::find(names.begin(), names.end(), word);
    if (found == names.end()) return std::nullopt;
    return first + static_cast<unsigned>(found - names.begin());
}

}  // namespace

bool isFunctionWord(std::string_view folded) {
    static const std::unordered_set<std::string_view> words(std::begin(kFunctionWords),
                                                            std::end(kFunctionWords));
    return words.contains(folded);
}

const CommonWord* commonWord(std::string_view stem) {
    static const auto rows = rowsByStem();
    const auto row = rows.find(stem);
    return row == rows.end() ? nullptr : row->second;
}

std::string_view wordStem(std::string_view word) {
    constexpr std::size_t kShortest = 3;  // the least length of a stem
    if (!std::all_of(word.begin(), word.end(), isASCIILetter)) return word;
    const auto drop = [&](std::string_view ending) {
        const bool ends = word.size() >= ending.size() + kShortest && word.ends_with(ending);
        if (ends) word.remove_suffix(ending.size());
        return ends;
    };
    // "ss" and "us" end singulars.
    if (!word.ends_with("ss") && !word.ends_with("us")) drop("s");
    if (!drop("ing")) drop("ed");
    drop("e");
    if (word.size() > kShortest && word.back() == word[word.size() - 2]) word.remove_suffix(1);
    return word;
}

std::optional<unsigned> spelledNumber(std::string_view folded) {
    static constexpr std::array<std::string_view, 11> names{
        "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten", "eleven", "twelve"};
    return placeFrom(names, 2, folded);
}

std::optional<unsigned> spelledOrdinal(std::string_view folded) {
    static constexpr std::array<std::string_view, 10> names{"first", "second", "third",   "fourth",
                                                            "fifth", "sixth",  "seventh", "eighth",
                                                            "ninth", "tenth"};
    return placeFrom(names, 1, folded);
}

}  // namespace kit
