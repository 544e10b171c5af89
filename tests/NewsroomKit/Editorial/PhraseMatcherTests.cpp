#include "NewsroomKit/Editorial/PhraseMatcher.h"

#include <gtest/gtest.h>

#include "NewsroomKit/Editorial/PhraseTables.h"

namespace kit {
namespace {

TEST(PhraseMatcher, normalizingFoldsAndMakesPunctuationOrdinary) {
    const struct {
        const char* text;
        const char* normalized;
    } cases[] = {
        {"Café CAFE Ｃａｆｅ", "cafe cafe cafe"},
        {"‘It’s’ “here”", "'it's' \"here\""},
        {"a—b–c\u00A0d", "a b c d"},
        {"a  —  b", "a     b"},
        {"a‑b …‚‛„ − x", "a‑b …‚‛„ − x"},
        {" £5\t½™\n", " £5\t½™\n"},
        {"’", "'"},
    };
    for (const auto& [text, normalized] : cases) {
        EXPECT_EQ(PhraseMatcher::normalize(text), normalized) << text;
    }
}

TEST(PhraseMatcher, aPhraseOfWordsIsBoundedAndAnyOtherPlain) {
    const struct {
        const char* phrase;
        const char* stored;
        bool bounded;
    } cases[] = {
        {"  iPhone\u00A0Air\t", "iphone air", true},
        {"Vision—Pro", "vision pro", true},
        {"hands-on", "hands-on", true},
        {"tvOS 26.1", "tvos 26.1", true},
        {"Apple’s", "apple's", true},
        {"日本語", "日本語", true},
        {"two\nlines", "two\nlines", true},
        {"\n line\n", "\n line\n", true},
        {".-'", ".-'", true},
        {"save $", "save $", false},
        {"% off", "% off", false},
        {"report:", "report:", false},
        {"#ad", "#ad", false},
        {"s&p 500", "s&p 500", false},
        {"tv/os", "tv/os", false},
        {"(ad)", "(ad)", false},
        {"“quoted”", "\"quoted\"", false},
        {"mac_os", "mac_os", false},
        {"🍎", "🍎", false},
        {"", "", false},
        {" \t\u3000", "", false},
        {"\u0301", "", false},
    };
    for (const auto& [phrase, stored, bounded] : cases) {
        const PhraseMatcher matcher(phrase);
        EXPECT_EQ(matcher.phrase, stored) << phrase;
        EXPECT_EQ(matcher.isBounded(), bounded) << phrase;
    }
}

TEST(PhraseMatcher, boundedPhrasesMatchOnlyAsWholeWords) {
    const struct {
        const char* phrase;
        const char* text;
        bool matches;
    } cases[] = {
        {"mac", "Mac", true},           {"mac", "the mac, finally", true},
        {"mac", "mac-only", true},      {"mac", "_mac_", true},
        {"mac", "macbook", false},      {"mac", "imac", false},
        {"mac", "mac2", false},         {"mac", "½mac", false},
        {"mac", "macⅧ", false},         {"mac", "漢mac字", false},
        {"mac", "™mac™", true},         {"mac", "mac\u0301s mac\u0301", true},
        {"mac", "macs imac mac", true}, {"mac mac", "xmac mac mac", true},
        {"q4", "q42 q4", true},         {"-mac", "imac-mac", false},
        {"-mac", "i -mac", true},       {"straße", "Die STRASSE.", true},
        {"save $", "Save $200", true},  {"% off", "20% offer", true},
        {"", "anything", false},        {"", "", false},
    };
    for (const auto& [phrase, text, matches] : cases) {
        EXPECT_EQ(PhraseMatcher(phrase).matches(PhraseMatcher::normalize(text)), matches)
            << phrase << " in " << text;
    }
}

TEST(PhraseMatcher, matchingDoesNotNormalizeTheTextAgain) {
    EXPECT_FALSE(PhraseMatcher("mac").matches("MAC"));
    EXPECT_FALSE(PhraseMatcher("mac").matches(std::string_view()));
    EXPECT_FALSE(PhraseMatcher("mac").matches("\xFFma\xC3"));
    EXPECT_TRUE(PhraseMatcher("mac").matches("\xFFmac\xC3"));
}

TEST(PhraseMatcher, equalPhrasesAreEqualValues) {
    EXPECT_EQ(PhraseMatcher(" iPad "), PhraseMatcher("IPAD"));
    EXPECT_NE(PhraseMatcher("ipad"), PhraseMatcher("ipads"));
}

TEST(PhraseTables, everyPhraseIsStoredAsTextsAreCompared) {
    for (std::size_t index = 0; index < phraseTableCount; ++index) {
        const auto table = static_cast<PhraseTable>(index);
        EXPECT_FALSE(tableName(table).empty());
        for (const std::string_view phrase : phrases(table)) {
            EXPECT_EQ(PhraseMatcher(phrase).phrase, phrase);
            EXPECT_FALSE(phrase.empty());
        }
    }
}

TEST(PhraseTables, holdTheNumberOfNamesThatTheRulesCallFor) {
    EXPECT_EQ(phrases(PhraseTable::spokesperson).size(), 26U);
    EXPECT_EQ(phrases(PhraseTable::appleTopic).size(), 42U);
}

}  // namespace
}  // namespace kit
