#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kit {

/// The headers of one answer. An answer with more than 300 KB of them is refused, so their size is
/// bounded.
class ResponseHeaders {
public:
    void add(std::string_view name, std::string_view value);

    /// The first value of that name, whose letter case doesn't matter. It is valid as long as this
    /// object.
    std::optional<std::string_view> find(std::string_view name) const;

private:
    std::vector<std::pair<std::string, std::string>> headers_;
};

}  // namespace kit
