#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// Seconds since 1970. The service counts whole ones: fractions are dropped.
struct ArchivePeriod {
    double after = 0;
    double before = 0;
};

/// One end of a period is not finite, or too far away for a whole number.
class UnsendableInstant : public std::invalid_argument {
public:
    UnsendableInstant() : std::invalid_argument("This is no time that can be asked for.") {}
};

/// Where the archive is at the service of that address ("https://host/").
std::string archiveBaseAt(std::string_view serviceAddress);

/// What is asked of the archive, as addresses. Each address of a story in them is encoded as a
/// whole: of its characters only letters, digits and "-._~" stay as they are.
struct ArchiveAddresses {
    std::string_view base;  ///< ends in "/wp-json/tb-archive/v1/"

    /// Throws UnsendableInstant.
    std::string stories(ArchivePeriod period, std::int64_t offset, std::int64_t limit) const;
    std::string status() const;
    /// The "," between two stories is the only one that stays a ",".
    std::string credits(const std::vector<std::string>& stories) const;
    std::string trace(std::string_view story) const;
};

}  // namespace kit
