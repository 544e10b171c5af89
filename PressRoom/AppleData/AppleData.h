#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "PressRoom/World/DataFile.h"

/// The data files of firmware signing, the update catalogue and the App Store's charts. Times
/// are minutes before the world's anchor, negative ones after it; README.md explains every key.
namespace pressroom {

struct WorldFirmware {
    std::string version{};
    std::string build{};
    double minutesAgo = 0;
    std::optional<double> unsignedMinutesAgo{};  ///< when signing ends; absent: never
};

/// All devices of one system get the same builds.
struct WorldSystem {
    std::string system{};
    std::vector<WorldFirmware> firmwares{};  ///< newest first
};

struct WorldDevice {
    std::string identifier{};
    std::string name{};
    std::string system{};
};

struct WorldSigning {
    std::vector<WorldSystem> systems{};
    std::vector<WorldDevice> devices{};
};

struct WorldAsset {
    std::string set{};
    std::string version{};
    std::string build{};
    double minutesAgo = 0;
    std::optional<double> goneMinutesAgo{};
    std::optional<double> expiresInDays{};  ///< from the anchor on
    std::vector<std::string> devices{};
};

struct WorldUpdates {
    std::vector<WorldAsset> assets{};
    std::vector<WorldAsset> managed{};       ///< for managed devices
    std::vector<WorldAsset> improvements{};  ///< background security improvements
};

struct WorldApp {
    std::string id{};
    std::string name{};
    std::string developer{};
};

/// The app moves to that rank; those it passes shift by one.
struct WorldMove {
    double minutesAgo = 0;
    std::string app{};
    double rank = 0;
};

struct WorldChart {
    std::string kind{};
    std::vector<WorldApp> apps{};    ///< by rank; more than the chart shows
    std::vector<WorldMove> moves{};  ///< oldest first
};

struct WorldCharts {
    std::vector<WorldChart> charts{};
};

struct AppleData {
    WorldSigning signing;
    WorldUpdates updates;
    WorldCharts charts;
};

/// Reads the files in the folder `apple` below `directory` and checks them. Throws WorldError.
AppleData readAppleData(const std::filesystem::path& directory);

}  // namespace pressroom
