#include "NewsroomKit/Text/Folding.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

template <class Visit>
void forEachCodePoint(Visit visit) {
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint == 0xD800) codePoint = 0xE000;
        std::string text;
        appendUTF8(codePoint, text);
        visit(codePoint, text);
    }
}

TEST(Folding, removesDifferencesOfCaseAccentAndWidthOnly) {
    const struct {
        const char* text;
        const char* folded;
    } cases[] = {
        {"", ""},
        {"CAFE", "cafe"},
        {"Café", "cafe"},
        {"Cafe\u0301", "cafe"},
        {"Ｍａｃ　９", "mac 9"},
        {"Straße STRASSE", "strasse strasse"},
        {"ﬁnal ﬂow", "final flow"},
        {"İstanbul ısı", "istanbul ısı"},
        {"ΣΑΣ σας", "σασ σασ"},
        {"Ångström Å", "angstrom a"},
        {"Tiếng Việt", "tieng viet"},
        {"Йод ёж", "иод еж"},
        {"ｶﾞｲﾄﾞ ﾊﾟﾘ ｱﾞ", "ガイド パリ ア"},
        {"ガイド がいど", "ガイド がいど"},
        {"カ\u3099 ハ\u309A ウ\u3099 ヽ\u3099", "ガ パ ヴ ヾ"},
        {"\u3099a\u3099 カ\u0301\u3099", "a ガ"},
        {"한국 각", "한국 각"},
        {"\u1112\u1161\u11AB\u1100\u116E\u11A8 \u1161", "한국 \u1161"},
        {"שָׁלוֹם", "שלום"},
        {"i️⃣", "i"},
        {"™ ½ ² ㎏ ﷼", "™ ½ ² ㎏ ﷼"},
        {"“Ünder” — ‘it’", "“under” — ‘it’"},
        {"K Ω", "k ω"},
        {"line\nbreak\tand  runs", "line\nbreak\tand  runs"},
    };
    for (const auto& [text, folded] : cases) EXPECT_EQ(fold(text), folded) << text;
}

TEST(Folding, invalidBytesBecomeReplacementCharacters) {
    const struct {
        std::string text;
        const char* folded;
    } cases[] = {
        {"A\xFF"
         "B",
         "a\uFFFDb"},
        {"caf\xC3", "caf\uFFFD"},
        {"\xE2\x80", "\uFFFD"},
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"\xC0\x80", "\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x9F\x98X", "\uFFFDx"},
        {std::string("A\0B", 3), nullptr},
    };
    for (const auto& [text, folded] : cases) {
        EXPECT_EQ(fold(text), folded ? std::string(folded) : std::string("a\0b", 3));
    }
}

TEST(Folding, canonicallyEquivalentSpellingsFoldAlikeAndFoldingTwiceChangesNothing) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2& nfd = *icu::Normalizer2::getNFDInstance(status);
    forEachCodePoint([&](char32_t codePoint, const std::string& text) {
        const std::string folded = fold(text);
        std::string decomposed;
        nfd.normalize(icu::UnicodeString(static_cast<UChar32>(codePoint)), status)
            .toUTF8String(decomposed);
        ASSERT_EQ(fold(decomposed), folded) << std::hex << std::uint32_t{codePoint};
        ASSERT_EQ(fold(folded), folded) << std::hex << std::uint32_t{codePoint};
    });
}

TEST(Folding, severalThreadsMayFoldTheSameNewScriptAtOnce) {
    const std::string text = "ᏣᎳᎩ Ⴀ Ա ⰰ 𐐀 Ｚ";
    std::vector<std::string> folded(4);
    std::vector<std::jthread> threads;
    for (std::string& result : folded) threads.emplace_back([&] { result = fold(text); });
    threads.clear();
    for (const std::string& result : folded) EXPECT_EQ(result, "ᏣᎳᎩ ⴀ ա ⰰ 𐐨 z");
}

}  // namespace
}  // namespace kit
