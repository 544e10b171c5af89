#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// What Apple offers to the devices of one platform.
struct UpdateOffer {
    std::string platform{};
    std::string version{};
    std::string build{};
    Instant posted{};
    std::optional<Instant> expires{};
    std::int64_t deviceCount = 0;
    std::optional<std::string> newestDevice{};  ///< by its model number

    bool operator==(const UpdateOffer&) const = default;
};

/// Apple's catalogue of software updates.
struct AppleUpdateCatalog {
    /// The file as Apple writes it.
    struct Asset {
        std::string version{};
        std::string build{};
        std::string postingDate{};
        std::optional<std::string> expirationDate{};
        std::vector<std::string> supportedDevices{};
    };
    struct Feed {
        std::map<std::string, std::vector<Asset>> publicAssetSets{};
    };

    /// The latest first; those of one day with the higher version first, then in the order of
    /// platforms. An asset whose posting date does not read is left out. Throws RecordError.
    static std::vector<UpdateOffer> parse(std::string_view body);

    static std::vector<UpdateOffer> offers(const Feed& feed);

    /// The order of offers.
    static bool standsAhead(const UpdateOffer& one, const UpdateOffer& other);
};

template <>
struct JSONFields<UpdateOffer> {
    static constexpr auto fields = std::tuple{
        field("platform", &UpdateOffer::platform),
        field("version", &UpdateOffer::version),
        field("build", &UpdateOffer::build),
        field("posted", &UpdateOffer::posted),
        field("expires", &UpdateOffer::expires),
        field("deviceCount", &UpdateOffer::deviceCount),
        field("newestDevice", &UpdateOffer::newestDevice),
    };
};

template <>
struct JSONFields<AppleUpdateCatalog::Asset> {
    using Asset = AppleUpdateCatalog::Asset;
    static constexpr auto fields = std::tuple{
        field("ProductVersion", &Asset::version),
        field("Build", &Asset::build),
        field("PostingDate", &Asset::postingDate),
        field("ExpirationDate", &Asset::expirationDate),
        field("SupportedDevices", &Asset::supportedDevices),
    };
};

template <>
struct JSONFields<AppleUpdateCatalog::Feed> {
    static constexpr auto fields =
        std::tuple{field("PublicAssetSets", &AppleUpdateCatalog::Feed::publicAssetSets)};
};

}  // namespace kit
