#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Signing/SigningChange.h"
#include "NewsroomKit/Trackers/Updates/OfferChange.h"

namespace kit {

/// A change of the signing of one build, for all devices that it concerns.
struct SigningNews {
    std::string system{};  ///< "iOS 27.1"; the version alone where the platform is not known
    std::string build{};
    bool isSigned = false;
    Instant seenAt{};                    ///< the first of them
    std::vector<std::string> devices{};  ///< their marketing names

    /// "iOS 27.1 (24B83) is no longer signed for iPhone 17 and 2 others"
    std::string title() const;
    std::string sentence() const { return title() + "."; }

    bool operator==(const SigningNews&) const = default;
};

/// How many of so many devices a sentence names before "and 4 others"; all where they are few.
std::size_t namedDevices(std::size_t devices);

/// Groups the changes that were seen within an hour of each other. The groups keep the order of
/// their first changes.
std::vector<SigningNews> signingNews(const std::vector<SigningChange>& changes);

/// "Apple's update catalogue now offers macOS 27.1.2 (26B97)"
std::string titleOf(const OfferChange& change);
inline std::string sentence(const OfferChange& change) { return titleOf(change) + "."; }

}  // namespace kit
