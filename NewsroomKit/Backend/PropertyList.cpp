#include "NewsroomKit/Backend/PropertyList.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

#include <fmt/format.h>

#include "NewsroomKit/Feeds/XMLTree.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

namespace json = boost::json;

constexpr std::size_t longestValuesFile = 64'000'000;

std::optional<json::value> valueOf(const XMLElement& element, std::size_t depth);

std::optional<json::value> dictionaryOf(const XMLElement& element, std::size_t depth) {
    json::object object;
    if (element.children.size() % 2 != 0) return std::nullopt;
    for (std::size_t i = 0; i + 1 < element.children.size(); i += 2) {
        const auto& key = element.children[i];
        auto value = valueOf(element.children[i + 1], depth + 1);
        if (key.name != "key" || !value) return std::nullopt;
        object[key.text] = std::move(*value);
    }
    return object;
}

template <class Number>
std::optional<json::value> numberOf(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    // Numbers that do not fit stay text: they are compared, never counted with.
    if (error != std::errc() || end != text.data() + text.size()) return json::string(text);
    return number;
}

/// White space and "=" are left out.
std::string bytesOfBase64(std::string_view text) {
    constexpr std::string_view letters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : text) {
        const auto value = letters.find(c);
        if (value == std::string_view::npos) continue;
        bits = (bits << 6) | static_cast<std::uint32_t>(value);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>((bits >> count) & 0xFFU);
    }
    return bytes;
}

std::optional<json::value> valueOf(const XMLElement& element, std::size_t depth) {
    if (depth > deepestFileEntry) return std::nullopt;
    const auto text = trimWhitespaceAndNewlines(element.text);
    const auto& name = element.name;
    if (name == "dict") return dictionaryOf(element, depth);
    if (name == "array") {
        json::array list;
        for (const auto& child : element.children) {
            auto value = valueOf(child, depth + 1);
            if (!value) return std::nullopt;
            list.push_back(std::move(*value));
        }
        return list;
    }
    if (name == "string" || name == "date") return json::string(element.text);
    if (name == "integer") return numberOf<std::int64_t>(text);
    if (name == "real") return numberOf<double>(text);
    if (name == "true") return true;
    if (name == "false") return false;
    if (name == "data") return describedData(bytesOfBase64(text));
    return std::nullopt;
}

std::optional<json::value> readXMLPropertyList(std::string_view bytes) {
    const auto root = parseXMLTree(bytes);
    if (!root || root->name != "plist" || root->children.size() != 1) return std::nullopt;
    return valueOf(root->children.front(), 0);
}

}  // namespace

json::string describedData(std::string_view data) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : data) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return json::string(fmt::format("data of {} bytes, {:016x}", data.size(), hash));
}

std::optional<json::value> readValues(std::string_view bytes) {
    if (bytes.size() > longestValuesFile) return std::nullopt;
    if (bytes.starts_with("bplist")) return readBinaryPropertyList(bytes);
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    const auto begin = bytes.find_first_not_of(" \t\r\n");
    if (begin != std::string_view::npos && bytes[begin] == '<') return readXMLPropertyList(bytes);
    // Each entry but the first of a list has a comma before it.
    if (static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), ',')) > mostFileEntries) {
        return std::nullopt;
    }
    json::parse_options options;
    options.max_depth = deepestFileEntry;
    boost::system::error_code error;
    auto value = json::parse(bytes, error, {}, options);
    if (error) return std::nullopt;
    return value;
}

}  // namespace kit
