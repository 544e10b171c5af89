#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "PressRoom/Trackers/Market.h"
#include "PressRoom/World/DataFile.h"

/// The data files of the trackers. As for stories, times are minutes before the world's
/// anchor, negative ones after it; README.md explains every key.
namespace pressroom {

/// The status page's entry for an incident from one moment on.
struct WorldIncidentState {
    double minutesAgo = 0;
    std::optional<std::string> status{};
    std::optional<std::string> message{};
};

struct WorldIncident {
    std::optional<std::string> kind{};
    std::optional<std::string> usersAffected{};
    std::optional<double> startedMinutesAgo{};
    std::vector<WorldIncidentState> states{};  ///< oldest first
};

struct WorldService {
    std::string name{};
    std::optional<std::string> page{};
    std::optional<std::vector<WorldIncident>> incidents{};
};

struct WorldStatus {
    std::vector<WorldService> services{};
};

/// A build, from the moment on which its channel offers it.
struct WorldBuild {
    double minutesAgo = 0;
    std::optional<double> publishedMinutesAgo{};
    std::string version{};
    std::string stage{};
    std::string build{};
    std::string title{};
    std::string url{};
    std::optional<std::string> artwork{};
};

struct WorldPlatform {
    std::string platform{};
    std::optional<std::vector<WorldBuild>> general{};  ///< oldest first, as are betas
    std::optional<std::vector<WorldBuild>> beta{};
};

struct WorldReleases {
    std::vector<WorldPlatform> systems{};
};

struct WorldEventState {
    double minutesAgo = 0;
    std::string status{};
};

struct WorldEvent {
    std::string id{};
    std::string title{};
    double startsMinutesAgo = 0;
    std::optional<double> pacificHour{};  ///< moves the start to that hour of its day in Cupertino
    std::string window{};
    std::string source{};
    std::string publisher{};
    std::vector<WorldEventState> states{};  ///< oldest first
};

struct WorldCalendar {
    std::vector<WorldEvent> events{};
};

/// A time in which a quote is not what its walk says, as services have them.
struct WorldPriceStep {
    double minute = 0;  ///< after the anchor
    std::optional<double> until{};
    std::optional<double> factor{};  ///< of the current price alone: points and extremes stay
    std::optional<double> split{};   ///< all prices are divided by it
    std::optional<std::string> currency{};
    std::optional<bool> stale{};
    std::optional<double> minutesAhead{};  ///< of the price's time
};

struct WorldQuote {
    std::string symbol{};
    std::string name{};
    std::optional<std::string> group{};  ///< if given, the quote is on the board
    std::optional<std::string> relation{};
    std::string currency{};
    Market market = Market::newYork;
    double price = 0;       ///< at the anchor
    double dailySwing = 0;  ///< usual movement in a day, in percent
    double dailyVolume = 0;
    std::optional<bool> withoutPreviousClose{};
    std::optional<bool> stale{};
    std::optional<std::vector<WorldPriceStep>> steps{};
};

struct WorldBoard {
    std::vector<WorldQuote> quotes{};
};

struct TrackerFiles {
    WorldStatus consumer;
    WorldStatus developer;
    WorldReleases releases;
    WorldCalendar calendar;
    WorldBoard board;
};

/// Reads the files in the folder `trackers` below `directory` and checks them. Throws
/// WorldError.
TrackerFiles readTrackers(const std::filesystem::path& directory);

}  // namespace pressroom
