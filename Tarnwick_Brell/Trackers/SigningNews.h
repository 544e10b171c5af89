#pragma once

#include <string>
#include <vector>

#include "Tarnwick_Brell/Storage/Histories/OfferHistory.h"
#include "Tarnwick_Brell/Storage/Histories/SigningHistory.h"

namespace app {

/// Changes of one build at several devices, as people are told of them.
struct SigningNews {
    std::string system{};  ///< "iOS 27.1"; the version alone where the platform is not known
    std::string build{};
    bool isSigned = false;
    kit::Instant seenAt{};               ///< the first of them
    std::vector<std::string> devices{};  ///< by the names that people know

    /// "iOS 27.1 (24B83) is no longer signed for iPhone 17 and 2 others."
    std::string sentence() const;

    bool operator==(const SigningNews&) const = default;
};

/// Changes that were seen within an hour of each other belong together. In the order in which
/// they are given.
std::vector<SigningNews> signingNews(const std::vector<SigningChange>& changes);

/// "Apple's update catalogue now offers macOS 27.1.2 (26B97)."
std::string sentence(const OfferChange& change);

}  // namespace app
