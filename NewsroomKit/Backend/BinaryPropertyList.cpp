#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "NewsroomKit/Backend/PropertyList.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

namespace json = boost::json;

constexpr std::size_t trailerLength = 32;
/// Property lists count seconds from the first day of 2001.
constexpr double secondsTo2001 = 978'307'200;

class BinaryReader {
public:
    explicit BinaryReader(std::string_view bytes) : bytes_(bytes) {}

    std::optional<json::value> read() {
        if (!readTrailer()) return std::nullopt;
        return object(top_, 0);
    }

private:
    /// What stands behind an object's marker byte.
    struct Content {
        std::uint8_t type;    ///< the upper half of the marker
        std::uint8_t detail;  ///< the lower half
        std::size_t count;
        std::size_t at;
    };

    bool readTrailer();
    std::optional<std::uint64_t> number(std::size_t at, std::size_t length) const;
    std::optional<Content> content(std::size_t at) const;
    std::optional<json::value> object(std::uint64_t index, std::size_t depth);
    std::optional<json::value> value(const Content& found, std::size_t depth);
    std::optional<json::value> simple(const Content& found) const;
    std::optional<json::value> list(const Content& found, std::size_t depth);
    std::optional<json::value> dictionary(const Content& found, std::size_t depth);
    std::optional<json::value> wideText(const Content& found) const;
    std::optional<std::string_view> slice(std::size_t at, std::size_t length) const {
        if (at > bytes_.size() || length > bytes_.size() - at) return std::nullopt;
        return bytes_.substr(at, length);
    }

    std::string_view bytes_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::uint64_t objectCount_ = 0;
    std::uint64_t top_ = 0;
    std::uint64_t table_ = 0;
    std::size_t visited_ = 0;
    std::vector<bool> isOpen_;  ///< objects that are being read, to find those inside themselves
};

std::optional<std::uint64_t> BinaryReader::number(std::size_t at, std::size_t length) const {
    const auto bytes = slice(at, length);
    if (!bytes || length == 0 || length > 8) return std::nullopt;
    std::uint64_t result = 0;
    for (const char c : *bytes) result = (result << 8) | static_cast<unsigned char>(c);
    return result;
}

bool BinaryReader::readTrailer() {
    if (bytes_.size() < 8 + trailerLength) return false;
    const auto begin = bytes_.size() - trailerLength;
    offsetSize_ = number(begin + 6, 1).value_or(0);
    referenceSize_ = number(begin + 7, 1).value_or(0);
    objectCount_ = number(begin + 8, 8).value_or(0);
    top_ = number(begin + 16, 8).value_or(0);
    table_ = number(begin + 24, 8).value_or(0);
    const bool hasSizes =
        offsetSize_ >= 1 && offsetSize_ <= 8 && referenceSize_ >= 1 && referenceSize_ <= 8;
    // Counts are bounded by the bytes that the table of objects takes.
    if (!hasSizes || table_ > begin || objectCount_ > (begin - table_) / offsetSize_) return false;
    isOpen_.resize(objectCount_);
    return true;
}

std::optional<BinaryReader::Content> BinaryReader::content(std::size_t at) const {
    const auto marker = number(at, 1);
    if (!marker) return std::nullopt;
    Content found{.type = static_cast<std::uint8_t>(*marker >> 4),
                  .detail = static_cast<std::uint8_t>(*marker & 0xF),
                  .count = *marker & 0xF,
                  .at = at + 1};
    const bool isCounted =
        found.type == 4 || found.type == 5 || found.type == 6 || found.type >= 0xA;
    if (!isCounted || found.detail != 0xF) return found;
    // The count follows as an integer object of its own.
    const auto size = number(found.at, 1);
    if (!size || (*size >> 4) != 1 || (*size & 0xF) > 3) return std::nullopt;
    const auto length = std::size_t{1} << (*size & 0xF);
    const auto count = number(found.at + 1, length);
    if (!count || *count > bytes_.size()) return std::nullopt;
    found.count = *count;
    found.at += 1 + length;
    return found;
}

std::optional<json::value> BinaryReader::object(std::uint64_t index, std::size_t depth) {
    if (index >= objectCount_ || depth > deepestFileEntry || ++visited_ > mostFileEntries) {
        return std::nullopt;
    }
    if (isOpen_[index]) return std::nullopt;
    const auto at = number(table_ + index * offsetSize_, offsetSize_);
    if (!at || *at >= table_) return std::nullopt;
    const auto found = content(*at);
    if (!found) return std::nullopt;
    isOpen_[index] = true;
    auto result = value(*found, depth);
    isOpen_[index] = false;
    return result;
}

std::optional<json::value> BinaryReader::value(const Content& found, std::size_t depth) {
    switch (found.type) {
        case 0x4: {
            const auto data = slice(found.at, found.count);
            if (!data) return std::nullopt;
            return describedData(*data);
        }
        case 0x5: {
            const auto text = slice(found.at, found.count);
            if (!text) return std::nullopt;
            return json::string(*text);
        }
        case 0x6: return wideText(found);
        case 0xA:
        case 0xC: return list(found, depth);
        case 0xD: return dictionary(found, depth);
        default: return simple(found);
    }
}

std::optional<json::value> BinaryReader::simple(const Content& found) const {
    const auto length = std::size_t{1} << (found.detail & 0x7);
    switch (found.type) {
        case 0x0:
            if (found.detail == 0x8) return false;
            if (found.detail == 0x9) return true;
            return json::value(nullptr);
        case 0x1: {
            // Integers of 16 bytes only hold more of what eight bytes can.
            const auto integer = length == 16 ? number(found.at + 8, 8) : number(found.at, length);
            if (!integer) return std::nullopt;
            return static_cast<std::int64_t>(*integer);
        }
        case 0x2:
        case 0x3: {
            const auto bits = number(found.at, length);
            if (!bits || (length != 4 && length != 8)) return std::nullopt;
            const double real = length == 4
                                    ? std::bit_cast<float>(static_cast<std::uint32_t>(*bits))
                                    : std::bit_cast<double>(*bits);
            if (found.type == 0x2) return real;
            const auto instant = instantFromSeconds(real + secondsTo2001);
            if (!instant) return std::nullopt;
            return json::string(iso8601Text(*instant));
        }
        case 0x8: {
            const auto integer = number(found.at, std::size_t{found.detail} + 1);
            if (!integer) return std::nullopt;
            return *integer;
        }
        default: return std::nullopt;
    }
}

std::optional<json::value> BinaryReader::wideText(const Content& found) const {
    if (found.count > bytes_.size() / 2 || !slice(found.at, 2 * found.count)) return std::nullopt;
    std::string text;
    char32_t lead = 0;
    for (std::size_t i = 0; i < found.count; ++i) {
        const auto unit = static_cast<char32_t>(*number(found.at + 2 * i, 2));
        if (unit >= 0xD800 && unit < 0xDC00) {
            lead = unit;
        } else if (unit >= 0xDC00 && unit < 0xE000 && lead != 0) {
            appendUTF8(0x10000 + ((lead - 0xD800) << 10) + (unit - 0xDC00), text);
            lead = 0;
        } else {
            appendUTF8(unit, text);
        }
    }
    return json::string(text);
}

std::optional<json::value> BinaryReader::list(const Content& found, std::size_t depth) {
    if (found.count > bytes_.size() / referenceSize_) return std::nullopt;
    json::array items;
    for (std::size_t i = 0; i < found.count; ++i) {
        const auto index = number(found.at + i * referenceSize_, referenceSize_);
        auto item = index ? object(*index, depth + 1) : std::nullopt;
        if (!item) return std::nullopt;
        items.push_back(std::move(*item));
    }
    return items;
}

std::optional<json::value> BinaryReader::dictionary(const Content& found, std::size_t depth) {
    if (found.count > bytes_.size() / referenceSize_) return std::nullopt;
    json::object members;
    for (std::size_t i = 0; i < found.count; ++i) {
        const auto keyIndex = number(found.at + i * referenceSize_, referenceSize_);
        const auto index = number(found.at + (found.count + i) * referenceSize_, referenceSize_);
        auto key = keyIndex ? object(*keyIndex, depth + 1) : std::nullopt;
        auto member = index ? object(*index, depth + 1) : std::nullopt;
        if (!key || !key->is_string() || !member) return std::nullopt;
        members[key->get_string()] = std::move(*member);
    }
    return members;
}

}  // namespace

std::optional<json::value> readBinaryPropertyList(std::string_view bytes) {
    return BinaryReader(bytes).read();
}

}  // namespace kit
