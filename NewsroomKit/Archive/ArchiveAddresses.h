#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// In seconds since 1970. The service uses whole seconds: fractions are dropped.
struct ArchivePeriod {
    double after = 0;
    double before = 0;
};

/// One end of a period is not finite or does not fit a whole number.
class UnsendableInstant : public std::invalid_argument {
public:
    UnsendableInstant() : std::invalid_argument("The archive can't be asked for this time.") {}
};

/// The archive's base address at a service ("https://host/").
std::string archiveBaseAt(std::string_view serviceAddress);

/// The request addresses of the archive. Story addresses in them are fully encoded: only letters,
/// digits and "-._~" stay as they are.
struct ArchiveAddresses {
    std::string_view base;  ///< ends in "/wp-json/tb-archive/v1/"

    /// Throws UnsendableInstant.
    std::string stories(ArchivePeriod period, std::int64_t offset, std::int64_t limit) const;
    std::string status() const;
    /// Only the "," between two stories is not encoded.
    std::string credits(const std::vector<std::string>& stories) const;
    std::string trace(std::string_view story) const;
};

}  // namespace kit
