#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// The data files of courts and wires. Times are minutes before the world's anchor, negative ones
/// after it; README.md explains every key.
namespace pressroom {

struct WorldDocketEntry {
    std::optional<double> number{};  ///< absent: a minute entry
    double minutesAgo = 0;
    std::vector<std::string> events{};  ///< as the court names them
    std::string text{};
    std::optional<double> textMinutesAgo{};  ///< until then CourtListener has only the first event
    std::optional<double> freeMinutesAgo{};  ///< from then on its document is free
};

struct WorldDocket {
    std::string docket{};  ///< CourtListener's number
    std::string court{};
    std::string slug{};
    std::string number{};
    std::string name{};
    std::string pacerCase{};
    std::string cause{};
    std::vector<std::string> parties{};
    std::vector<WorldDocketEntry> entries{};  ///< oldest first; the case begins with it
};

struct WorldDockets {
    std::vector<WorldDocket> dockets{};
};

struct WorldPressRelease {
    std::string id{};
    std::vector<std::string> wires{};  ///< "globenewswire", "prnewswire"
    std::string company{};
    std::optional<std::string> symbol{};  ///< "Nasdaq:AAPL"
    std::string title{};
    std::string text{};
    double minutesAgo = 0;
};

struct WorldPress {
    std::vector<WorldPressRelease> releases{};
};

struct CourtWorld {
    WorldDockets dockets;
    WorldPress releases;
};

/// Reads the files in the folder `court` below `directory` and checks them. Throws WorldError.
CourtWorld readCourtWorld(const std::filesystem::path& directory);

}  // namespace pressroom
