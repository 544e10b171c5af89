#pragma once

#include <cstddef>
#include <string_view>

#include <libxml/xmlstring.h>

namespace kit {

/// The attributes of a start tag in the XML parser's form, five pointers each. Valid only during
/// the parser's callback.
class XMLAttributes {
public:
    struct Attribute {
        std::string_view name;
        bool hasPrefix;
        std::string_view value;
    };

    XMLAttributes(const xmlChar** pointers, int count)
        : pointers_(pointers), count_(static_cast<std::size_t>(count)) {}

    std::size_t size() const { return count_; }

    Attribute operator[](std::size_t index) const {
        const xmlChar* const* const row = pointers_ + index * 5;
        const auto* const value = reinterpret_cast<const char*>(row[3]);
        return {reinterpret_cast<const char*>(row[0]),
                row[1] != nullptr,
                {value, static_cast<std::size_t>(row[4] - row[3])}};
    }

    /// Empty when there is no such attribute.
    std::string_view value(std::string_view name) const {
        for (std::size_t index = 0; index < count_; ++index) {
            const auto attribute = (*this)[index];
            if (!attribute.hasPrefix && attribute.name == name) return attribute.value;
        }
        return {};
    }

    /// The value of xml:base; empty when there is none.
    std::string_view xmlBase() const {
        for (std::size_t index = 0; index < count_; ++index) {
            if (pointers_[index * 5 + 1] == nullptr) continue;
            const auto attribute = (*this)[index];
            const auto* const prefix = reinterpret_cast<const char*>(pointers_[index * 5 + 1]);
            if (attribute.name == "base" && std::string_view(prefix) == "xml") {
                return attribute.value;
            }
        }
        return {};
    }

private:
    const xmlChar** pointers_;
    std::size_t count_;
};

}  // namespace kit
