#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"

namespace kit {

/// Which problems of Apple's services are new since the last look, and which services have
/// come back.
struct ServiceProblems {
    /// What is remembered between two looks: the service of each problem, by its report's id.
    using Known = std::map<std::string, std::string>;

    std::vector<AppleServiceStatus::Report> problems{};  ///< consumer before developer
    std::vector<std::string> restored{};                 ///< services by name, each once
    std::optional<Known> known{};                        ///< to be remembered instead

    /// Pass absent lists for what has not loaded yet. Until the consumer status has, nothing
    /// changes. The first look (`known` absent) only remembers.
    ///
    /// A developer status that has not loaded counts as one without problems: those that are
    /// remembered from it are restored.
    static ServiceProblems look(std::optional<Known> known,
                                const std::optional<AppleServiceStatus::Services>& consumer,
                                const std::optional<AppleServiceStatus::Services>& developer);

    bool operator==(const ServiceProblems&) const = default;
};

}  // namespace kit
