#include "NewsroomKit/Feeds/FeedEncoding.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

constexpr const char* westernEncoding = "windows-1252";
constexpr std::string_view utf8Name = "UTF-8";
constexpr std::size_t longestDeclaration = 512;
constexpr std::size_t longestLabel = 40;

struct Substitute {
    std::string_view label;
    const char* encoding;
};

/// Encodings that these labels mean in practice: supersets with the same text wherever the narrower
/// encoding is defined.
constexpr std::array substitutes{Substitute{"iso-8859-1", westernEncoding},
                                 Substitute{"latin1", westernEncoding},
                                 Substitute{"iso-8859-9", "windows-1254"},
                                 Substitute{"gb2312", "gb18030"},
                                 Substitute{"gbk", "gb18030"},
                                 Substitute{"ks_c_5601-1987", "windows-949"},
                                 Substitute{"euc-kr", "windows-949"},
                                 Substitute{"shift_jis", "windows-932"}};

struct Converter {
    struct Close {
        void operator()(UConverter* converter) const { ucnv_close(converter); }
    };
    std::unique_ptr<UConverter, Close> handle;

    explicit Converter(const char* name) {
        UErrorCode status = U_ZERO_ERROR;
        handle.reset(ucnv_open(name, &status));
    }

    bool readsOneByteACharacter() const { return handle && ucnv_getMaxCharSize(handle.get()) == 1; }
};

struct Census {
    std::size_t sound = 0;   ///< characters beyond ASCII
    std::size_t broken = 0;  ///< sequences that are not UTF-8
};

Census census(std::string_view text) {
    Census result;
    for (auto at = endOfASCII(text, 0); at < text.size(); at = endOfASCII(text, at)) {
        const auto decoded = decodeUTF8(text, at);
        at += decoded.length;
        if (decoded.valid) {
            ++result.sound;
        } else {
            ++result.broken;
        }
    }
    return result;
}

/// The value of encoding="…" in the XML declaration, in lower case.
std::string declaredEncoding(std::string_view bytes) {
    const auto begin = bytes.find_first_not_of(std::string_view(" \t\r\n\0", 5));
    if (begin == std::string_view::npos) return {};
    bytes = bytes.substr(begin, longestDeclaration);
    if (!bytes.starts_with("<?xml")) return {};
    bytes = bytes.substr(0, bytes.find("?>"));
    auto at = bytes.find("encoding");
    if (at == std::string_view::npos) return {};
    at = bytes.find_first_of("\"'", at);
    if (at == std::string_view::npos) return {};
    const auto label = bytes.substr(at + 1, bytes.find(bytes[at], at + 1) - at - 1);
    return label.size() <= longestLabel ? lowercasedASCII(label) : std::string();
}

/// The name in the converter table for a label; labels never reach the file system.
std::optional<std::string> encodingOfLabel(const std::string& label) {
    for (const auto& row : substitutes) {
        if (row.label == label) return row.encoding;
    }
    const auto isLabelCharacter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == ':';
    };
    if (label.empty() || !std::all_of(label.begin(), label.end(), isLabelCharacter)) return {};
    // UTF-16 and UTF-32 were recognised by their bytes, so here the label is wrong.
    if (label.starts_with("utf") || label.starts_with("ucs") || label.starts_with("iso-10646")) {
        return {};
    }
    UErrorCode status = U_ZERO_ERROR;
    const char* known = ucnv_getStandardName(label.c_str(), "IANA", &status);
    if (U_FAILURE(status) || known == nullptr) return {};
    const std::string_view name = known;
    // The bytes are not all ASCII, so the label is wrong.
    if (name == "US-ASCII") return {};
    return std::string(name);
}

std::string_view converted(std::string_view bytes, const Converter& converter,
                           std::string& storage) {
    constexpr std::size_t bufferSize = 4096;
    std::array<UChar, bufferSize> buffer;
    const char* source = bytes.data();
    const char* const end = source + bytes.size();
    storage.clear();
    storage.reserve(bytes.size() + bytes.size() / 4);
    char16_t lead = 0;
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (status == U_BUFFER_OVERFLOW_ERROR) {
        status = U_ZERO_ERROR;
        UChar* target = buffer.data();
        ucnv_toUnicode(converter.handle.get(), &target, buffer.data() + bufferSize, &source, end,
                       nullptr, true, &status);
        for (const UChar* unit = buffer.data(); unit != target; ++unit) {
            if (U16_IS_LEAD(*unit)) {
                lead = *unit;
            } else if (U16_IS_TRAIL(*unit) && lead != 0) {
                appendUTF8(static_cast<char32_t>(U16_GET_SUPPLEMENTARY(lead, *unit)), storage);
                lead = 0;
            } else {
                appendUTF8(*unit, storage);
            }
        }
    }
    return storage;
}

/// UTF-16 without a byte-order mark is recognised by the zero byte beside the first "<".
const char* encodingOfBytes(std::string_view bytes, std::size_t& markLength) {
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    const char* name = ucnv_detectUnicodeSignature(
        bytes.data(), static_cast<std::int32_t>(std::min<std::size_t>(bytes.size(), 4)), &length,
        &status);
    markLength = static_cast<std::size_t>(length);
    if (U_SUCCESS(status) && name != nullptr) return name;
    markLength = 0;
    if (bytes.starts_with(std::string_view("<\0", 2))) return "UTF-16LE";
    if (bytes.starts_with(std::string_view("\0<", 2))) return "UTF-16BE";
    return nullptr;
}

std::string_view withDamageReplaced(std::string_view text, const Census& counts,
                                    std::string& storage) {
    if (counts.broken == 0) return text;
    storage = validUTF8(text);
    return storage;
}

}  // namespace

std::string_view feedInUTF8(std::string_view bytes, std::string& storage) {
    return labelledInUTF8(bytes, declaredEncoding(bytes), storage);
}

std::string_view labelledInUTF8(std::string_view bytes, const std::string& label,
                                std::string& storage) {
    // 1. Byte-order marks and zero bytes are unambiguous.
    std::size_t markLength = 0;
    if (const char* name = encodingOfBytes(bytes, markLength)) {
        const auto text = bytes.substr(markLength);
        if (name == utf8Name) return withDamageReplaced(text, census(text), storage);
        return converted(text, Converter(name), storage);
    }

    // 2. Plain ASCII reads the same under all remaining labels.
    const auto counts = census(bytes);
    const bool isUTF8 = counts.broken == 0;
    if (isUTF8 && counts.sound == 0) return bytes;

    // 3. A label that the bytes do not contradict.
    if (const auto encoding = encodingOfLabel(label)) {
        const Converter converter(encoding->c_str());
        if (converter.handle && !(isUTF8 && converter.readsOneByteACharacter())) {
            return converted(bytes, converter, storage);
        }
    }

    // 4. No usable label.
    if (counts.sound >= counts.broken) return withDamageReplaced(bytes, counts, storage);
    return converted(bytes, Converter(westernEncoding), storage);
}

}  // namespace kit
