#include "NewsroomKit/Text/Unicode.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/utext.h>

#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

TEST(Utf8, everyCodePointSurvivesWritingAndReadingInBothDirections) {
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        std::string text = "é";
        appendUTF8(codePoint, text);
        const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
        const char32_t expected = surrogate ? replacementCharacter : codePoint;
        const DecodedCodePoint forward = decodeUTF8(text, 2);
        const DecodedCodePoint backward = decodeUTF8Before(text, text.size());
        ASSERT_TRUE(forward.valid && backward.valid);
        ASSERT_EQ(forward.value, expected);
        ASSERT_EQ(backward.value, expected);
        ASSERT_EQ(forward.length, text.size() - 2);
        ASSERT_EQ(backward.length, text.size() - 2);
    }
}

TEST(Utf8, readingBackwardsAlwaysMovesAndNeverLeavesTheText) {
    std::mt19937 random(20261121);
    constexpr unsigned char bytes[] = {'a', 0x80, 0xBF, 0xC3, 0xE2, 0xED, 0xF0, 0xF4, 0xFF};
    for (int round = 0; round < 2000; ++round) {
        std::string text(random() % 9, ' ');
        for (char& byte : text) byte = static_cast<char>(bytes[random() % std::size(bytes)]);
        // A copy of exact size lets the sanitizers see a read outside it.
        const std::vector<char> exact(text.begin(), text.end());
        std::size_t end = exact.size();
        while (end > 0) {
            const auto decoded = decodeUTF8Before({exact.data(), exact.size()}, end);
            ASSERT_GE(decoded.length, 1U);
            ASSERT_LE(decoded.length, end);
            end -= decoded.length;
        }
        EXPECT_TRUE(isValidUTF8(validUTF8(text)));
        EXPECT_EQ(validUTF8(text) == text, isValidUTF8(text));
    }
}

TEST(Unicode, trimmingKnowsWhichSpacesBreakALine) {
    const struct {
        std::string_view text, horizontal, all;
    } cases[] = {
        {"  word ", "word", "word"},
        {"\t\u00A0\u3000word\u2009", "word", "word"},
        {"\n word \r\n", "\n word \r\n", "word"},
        {" \u2028word\u0085 ", "\u2028word\u0085", "word"},
        {"\u200Bword\uFEFF", "\u200Bword\uFEFF", "\u200Bword\uFEFF"},
        {" \t\n ", "\n", ""},
        {"", "", ""},
        {" \xFF ", "\xFF", "\xFF"},
    };
    for (const auto& [text, horizontal, all] : cases) {
        EXPECT_EQ(trimHorizontalWhitespace(text), horizontal);
        EXPECT_EQ(trimWhitespaceAndNewlines(text), all);
    }
}

TEST(Unicode, lettersAndNumbersAreTheirGeneralCategories) {
    for (const char32_t letter : std::u32string_view(U"aZßñжשعकの漢ʼªǅ")) {
        EXPECT_TRUE(isLetter(letter)) << std::uint32_t{letter};
    }
    for (const char32_t number : std::u32string_view(U"09٣½²Ⅷ①")) {
        EXPECT_TRUE(isNumber(number)) << std::uint32_t{number};
    }
    for (const char32_t neither : std::u32string_view(U" _-$™°\u0301\u200D\uFFFD😀")) {
        EXPECT_FALSE(isLetter(neither) || isNumber(neither)) << std::uint32_t{neither};
    }
}

TEST(Unicode, lowercasingASCIILeavesOtherLettersAlone) {
    EXPECT_EQ(lowercasedASCII("WWW.ÉCOLE.Fr[@`{"), "www.École.fr[@`{");
}

TEST(Unicode, comparingIgnoresCaseAndSpellingButNotAccents) {
    const struct {
        std::string_view left, right;
        bool equal;
    } cases[] = {
        {"", "", true},
        {"Six Colors", "SIX COLORS", true},
        {"Straße", "STRASSE", true},
        {"É", "e\u0301", true},
        {"ΌΣΟΣ", "όσος", true},
        {"é", "e", false},
        {"Mac", "Macs", false},
        {"a[", "A{", false},
        {"ﬃ", "FFI", true},
        {"Ａ", "a", false},
        {"\u1FB4", "\u03B1\u0345\u0301", true},
    };
    for (const auto& [left, right, equal] : cases) {
        EXPECT_EQ(equalIgnoringCase(left, right), equal) << left << " / " << right;
        EXPECT_EQ(equalIgnoringCase(right, left), equal) << right << " / " << left;
    }
}

TEST(Unicode, aPrefixIsMeasuredInTheBytesOfTheText) {
    constexpr std::size_t none = std::string::npos;
    const struct {
        std::string_view text, prefix;
        std::size_t length;
    } cases[] = {
        {"MacStories: news", "macstories", 10},
        {"anything", "", 0},
        {"", "", 0},
        {"Mac", "Macs", none},
        {"Strasse 5", "straße", 7},
        {"STRAẞE 5", "strasse", 8},
        {"E\u0301cole: x", "école", 7},
        {"école", "ecole", none},
        {"e\u0301", "e", none},
        {"ﬁn", "f", none},
        {"x👨‍👩‍👧", "X👨", none},
        {"\xFFname", "name", none},
    };
    for (const auto& [text, prefix, length] : cases) {
        EXPECT_EQ(prefixLengthIgnoringCase(text, prefix).value_or(none), length)
            << text << " / " << prefix;
    }
}

TEST(Unicode, charactersAreWhatTheReaderSees) {
    const struct {
        std::string_view text;
        std::size_t count;
    } cases[] = {
        {"", 0},
        {"plain", 5},
        {"“curly” – é…", 12},
        {"e\u0301e\u0301", 2},
        {"a\r\nb", 3},
        {"a\n\rb", 4},
        {"👨‍👩‍👧‍👦!", 2},
        {"🇩🇪🇫🇷", 2},
        {"한국\u1112\u1161\u11AB", 3},
        {"क्षि", 1},
        {"\u0301", 1},
        {"©\uFE0F®", 2},
        {"a\xFF\xFEz", 4},
    };
    for (const auto& [text, count] : cases) EXPECT_EQ(characterCount(text), count) << text;
    EXPECT_EQ(firstCharacters("Cafe\u0301 👨‍👩‍👧 x", 4), "Cafe\u0301");
    EXPECT_EQ(firstCharacters("Cafe\u0301 👨‍👩‍👧 x", 6),
              "Cafe\u0301 👨‍👩‍👧");
    EXPECT_EQ(firstCharacters("a\r\nb", 2), "a\r\n");
    EXPECT_EQ(firstCharacters("short", 6), "short");
    EXPECT_EQ(firstCharacters("short", 0), "");
}

/// Offsets after each character, from ICU alone.
std::vector<std::size_t> boundariesByICU(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> iterator(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    UText input = UTEXT_INITIALIZER;
    utext_openUTF8(&input, text.data(), static_cast<std::int64_t>(text.size()), &status);
    iterator->setText(&input, status);
    std::vector<std::size_t> ends;
    for (auto end = iterator->next(); end != icu::BreakIterator::DONE; end = iterator->next()) {
        ends.push_back(static_cast<std::size_t>(end));
    }
    utext_close(&input);
    return ends;
}

TEST(Unicode, theQuickWayOverSimpleCharactersAgreesWithTheLongOne) {
    std::mt19937 random(7);
    constexpr std::string_view pieces[] = {
        "a", "Z",  " ",      "\r",     "\n",     "\r\n",   "é",      "\u00AD", "©",  "“",
        "—", "…",  "\u0301", "\u200D", "\uFE0F", "👩",     "🇩",      "🏽",     "ᄒ", "ᅡ",
        "ᆫ", "한", "क",      "्",       "ि",      "\u0600", "\u2028", "\xFF",   "ж",  "\u0483",
        "Ω", "א",  "ع",      "漢",     "か",     "カ",     "\u3099", "、",     "€",  "‼"};
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (auto count = random() % 12; count > 0; --count) {
            text += pieces[random() % std::size(pieces)];
        }
        const auto ends = boundariesByICU(text);
        ASSERT_EQ(characterCount(text), ends.size()) << testing::PrintToString(text);
        for (std::size_t count = 1; count <= ends.size(); ++count) {
            ASSERT_EQ(firstCharacters(text, count).size(), ends[count - 1])
                << count << " of " << testing::PrintToString(text);
        }
    }
}

}  // namespace
}  // namespace kit
