#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// One outlet, account or Apple document that an item credits for its news.
struct SourceCredit {
    enum class Kind { post, outlet, apple };

    Kind kind = Kind::outlet;
    std::optional<std::string> platform{};  ///< social platform of a credited post, e.g. "Bluesky"
    std::string name{};                     ///< the credited outlet or account
    std::optional<std::string> url{};
    std::optional<Instant> postedAt{};
    std::optional<std::string> detail{};  ///< the words that carry the credit, e.g. "according to"

    bool operator==(const SourceCredit&) const = default;
};

template <>
inline constexpr std::array<EnumRow<SourceCredit::Kind>, 3> enumTable<SourceCredit::Kind>{{
    {SourceCredit::Kind::post, "post", "Post"},
    {SourceCredit::Kind::outlet, "outlet", "Outlet"},
    {SourceCredit::Kind::apple, "apple", "Apple"},
}};

}  // namespace kit
