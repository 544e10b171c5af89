#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Archive/LenientValues.h"

namespace kit {

/// An outlet, account or document that an archived story credits, as the service found it. Has the
/// fields of a SourceCredit, but the kind stays text, so that a new kind does not invalidate the
/// whole answer.
struct ServerCredit {
    std::string kind{};                     ///< "post", "outlet", "apple", …
    std::optional<std::string> platform{};  ///< social platform of a credited post
    std::string name{};
    std::optional<std::string> url{};
    std::optional<std::string> detail{};  ///< the words that carry the credit
    std::optional<Instant> postedAt{};

    bool operator==(const ServerCredit&) const = default;
};

/// The credits of several stories. Both keys are required and may be empty.
struct ServerCredits {
    /// By requested address. A story without credits has an empty list; one that the archive does
    /// not know has no entry.
    LenientMap<std::vector<ServerCredit>> credits{};
    std::vector<std::string> pending{};  ///< addresses that the service has not read yet

    bool operator==(const ServerCredits&) const = default;
};

template <>
struct JSONFields<ServerCredit> {
    static constexpr auto fields = std::tuple{
        field("kind", &ServerCredit::kind),     field("platform", &ServerCredit::platform),
        field("name", &ServerCredit::name),     field("url", &ServerCredit::url),
        field("detail", &ServerCredit::detail), field("posted_at", &ServerCredit::postedAt),
    };
};

template <>
struct JSONFields<ServerCredits> {
    static constexpr auto fields = std::tuple{
        field("credits", &ServerCredits::credits),
        field("pending", &ServerCredits::pending),
    };
};

}  // namespace kit
