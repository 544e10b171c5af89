#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"

namespace kit {

/// The problems of Apple's services that are new in the latest statuses, and the services that
/// work again.
struct ServiceProblems {
    /// The service of each problem by its report's id, to be kept between two calls.
    using Known = std::map<std::string, std::string>;

    std::vector<AppleServiceStatus::Report> problems{};  ///< consumer before developer
    std::vector<std::string> restored{};                 ///< services by name, each once
    std::optional<Known> known{};                        ///< to be kept from now on

    /// Pass absent lists for what has not loaded yet. Until the consumer status has, nothing
    /// changes. The first call (`known` absent) reports nothing.
    ///
    /// A developer status that has not loaded counts as one without problems: those known from
    /// it are restored.
    static ServiceProblems detect(std::optional<Known> known,
                                  const std::optional<AppleServiceStatus::Services>& consumer,
                                  const std::optional<AppleServiceStatus::Services>& developer);

    bool operator==(const ServiceProblems&) const = default;
};

}  // namespace kit
