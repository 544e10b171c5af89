#include "NewsroomKit/Text/Folding.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

const icu::Normalizer2& normalizer(const icu::Normalizer2* (*instance)(UErrorCode&)) {
    UErrorCode status = U_ZERO_ERROR;
    return *instance(status);  // data compiled into ICU's own library
}

/// Half- and full-width forms become the ordinary character they are a form of.
icu::UnicodeString withOrdinaryWidth(char32_t codePoint) {
    const auto character = static_cast<UChar32>(codePoint);
    icu::UnicodeString ordinary(character);
    const auto type = u_getIntPropertyValue(character, UCHAR_DECOMPOSITION_TYPE);
    if (type == U_DT_WIDE || type == U_DT_NARROW) {
        normalizer(&icu::Normalizer2::getNFKDInstance).getRawDecomposition(character, ordinary);
    }
    return ordinary;
}

/// The marks that turn カ into ガ and ハ into パ. They form other letters and are not accents.
constexpr bool isKanaVoiceMark(char32_t c) { return c == U'\u3099' || c == U'\u309A'; }

/// Whether the folded character may combine with the one before it: a kana voice mark, half-width
/// ones included, or a vowel or final consonant of a Hangul syllable.
constexpr bool mayJoinPrevious(char32_t c) {
    const auto within = [c](char32_t first, char32_t last) { return c >= first && c <= last; };
    return within(0x1161, 0x1175) || within(0x11A8, 0x11C2) || isKanaVoiceMark(c) ||
           c == U'\uFF9E' || c == U'\uFF9F';
}

/// Folds one code point, slowly. The order (width, case folding, decomposition) makes the result
/// stable under another round. The rest is composed again once the marks are gone, which affects
/// only kana and Hangul.
std::string foldCodePoint(char32_t codePoint) {
    icu::UnicodeString folded = withOrdinaryWidth(codePoint).foldCase();
    UErrorCode status = U_ZERO_ERROR;
    folded = normalizer(&icu::Normalizer2::getNFDInstance).normalize(folded, status);
    icu::UnicodeString kept;
    for (std::int32_t at = 0; at < folded.length(); at = folded.moveIndex32(at, 1)) {
        const UChar32 character = folded.char32At(at);
        const bool isMark = (U_GET_GC_MASK(character) & U_GC_M_MASK) != 0;
        if (isMark && !isKanaVoiceMark(static_cast<char32_t>(character))) continue;
        kept.append(character);
    }
    std::string bytes;
    normalizer(&icu::Normalizer2::getNFCInstance).normalize(kept, status).toUTF8String(bytes);
    return bytes;
}

/// The folded forms of 256 consecutive code points.
class FoldingPage {
public:
    explicit FoldingPage(char32_t first) {
        for (char32_t index = 0; index < 256; ++index) {
            starts_[index] = static_cast<std::uint16_t>(bytes_.size());
            bytes_ += foldCodePoint(first + index);
        }
        starts_[256] = static_cast<std::uint16_t>(bytes_.size());
    }

    std::string_view of(char32_t codePoint) const {
        const std::size_t index = codePoint & 0xFFU;
        return {bytes_.data() + starts_[index],
                static_cast<std::size_t>(starts_[index + 1] - starts_[index])};
    }

private:
    std::array<std::uint16_t, 257> starts_{};
    std::string bytes_;
};

/// Pages are built on first use and never change afterwards. Two threads may build the same page;
/// the first to publish it wins.
class FoldingTable {
public:
    ~FoldingTable() {
        for (auto& slot : pages_) delete slot.load(std::memory_order_relaxed);
    }

    const FoldingPage& pageOf(char32_t codePoint) {
        auto& slot = pages_[codePoint >> 8];
        if (const FoldingPage* page = slot.load(std::memory_order_acquire)) return *page;
        auto made = std::make_unique<const FoldingPage>(codePoint & ~char32_t{0xFF});
        const FoldingPage* published = nullptr;
        if (slot.compare_exchange_strong(published, made.get(), std::memory_order_acq_rel,
                                         std::memory_order_acquire)) {
            published = made.release();
        }
        return *published;
    }

private:
    std::array<std::atomic<const FoldingPage*>, 0x1100> pages_{};
};

FoldingTable& foldingTable() {
    static FoldingTable table;
    return table;
}

/// Appends a folded character that may combine with the last character after `begin`.
void appendJoined(std::string_view folded, std::size_t begin, std::string& out) {
    const char32_t character = decodeUTF8(folded, 0).value;
    if (out.size() > begin) {
        const auto previous = decodeUTF8Before(out, out.size());
        const UChar32 joined =
            normalizer(&icu::Normalizer2::getNFCInstance)
                .composePair(static_cast<UChar32>(previous.value), static_cast<UChar32>(character));
        if (joined >= 0) {
            out.resize(out.size() - previous.length);
            return appendUTF8(static_cast<char32_t>(joined), out);
        }
    }
    if (!isKanaVoiceMark(character)) out += folded;
}

void appendLowercased(std::string_view ascii, std::string& out) {
    out.append(ascii);
    // Plain locals: the compiler turns the loop into wide instructions only when it sees
    // that the bytes written cannot be the string's own size.
    const std::size_t count = ascii.size();
    char* const letters = out.data() + out.size() - count;
    for (std::size_t index = 0; index < count; ++index) {
        const auto byte = static_cast<std::uint8_t>(letters[index]);
        const bool upper = byte >= 'A' && byte <= 'Z';
        letters[index] = static_cast<char>(byte + (upper ? 32 : 0));
    }
}

}  // namespace

void appendFolded(std::string_view utf8, std::string& out) {
    FoldingTable& table = foldingTable();
    const std::size_t begin = out.size();
    std::size_t at = 0;
    while (at < utf8.size()) {
        const std::size_t end = endOfASCII(utf8, at);
        appendLowercased(utf8.substr(at, end - at), out);
        at = end;
        while (at < utf8.size() && !isASCII(utf8[at])) {
            const DecodedCodePoint decoded = decodeUTF8(utf8, at);
            const std::string_view folded = table.pageOf(decoded.value).of(decoded.value);
            if (mayJoinPrevious(decoded.value)) {
                appendJoined(folded, begin, out);
            } else {
                out += folded;
            }
            at += decoded.length;
        }
    }
}

std::string fold(std::string_view utf8) {
    std::string folded;
    folded.reserve(utf8.size());
    appendFolded(utf8, folded);
    return folded;
}

}  // namespace kit
