#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// The data file of web pages that change. Times are minutes before the world's anchor, negative
/// ones after it; README.md explains every key.
namespace pressroom {

struct WorldPageLine {
    std::string text{};                  ///< HTML, with "{answer}" for what differs in each answer
    std::optional<double> minutesAgo{};  ///< absent: always
    std::optional<double> goneMinutesAgo{};
};

/// What a page's server does for a while.
struct WorldPageFault {
    std::string kind{};  ///< "old", "blocked", "short", "shuffled", "redirect", "foreign", "broken"
    double minutesAgo = 0;
    double goneMinutesAgo = 0;
    std::optional<double> asOf{};  ///< of an old copy: the minute it is from
};

struct WorldWebPage {
    std::string host{};
    std::string path{};
    std::string title{};
    std::vector<WorldPageLine> lines{};
    std::vector<WorldPageFault> faults{};
};

struct WorldWebPages {
    std::vector<WorldWebPage> pages{};
};

/// Reads the file in the folder `pages` below `directory`. Throws WorldError.
WorldWebPages readWebPages(const std::filesystem::path& directory);

}  // namespace pressroom
