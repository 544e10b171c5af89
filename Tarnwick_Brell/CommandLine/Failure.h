#pragma once

#include <stdexcept>
#include <string>

namespace cli {

/// Exit statuses of every subcommand.
inline constexpr int kDone = 0;
inline constexpr int kWorkFailed = 1;
inline constexpr int kWrongUsage = 2;

/// The work failed; what() is a sentence for the user.
class WorkFailed : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The arguments of a subcommand are wrong.
class WrongUsage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace cli
