#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include <sys/types.h>

#include "NewsroomKit/Records/Instant.h"

namespace app {

/// The demonstration can't run; what() is a sentence for the user.
class DemoError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The folder of the demonstration's own store.
std::filesystem::path demoDataDir();

/// Marks a folder without a library as the demonstration's, so that whatever is stored there first
/// belongs to it. Does nothing when there is a library.
void claimForDemo(const std::filesystem::path& dataDir, kit::Instant now);

/// The bundled press room as a child process, alive as long as this object. The start time of its
/// sample world is stored beside the demonstration's store: a second run soon afterwards has the
/// same world, a later one a new world.
class DemoPressRoom {
public:
    /// Throws DemoError when the press room is not installed or does not start.
    DemoPressRoom(const std::filesystem::path& dataDir, kit::Instant now);
    ~DemoPressRoom();
    DemoPressRoom(const DemoPressRoom&) = delete;
    DemoPressRoom& operator=(const DemoPressRoom&) = delete;

    const std::string& address() const { return address_; }
    const std::filesystem::path& authority() const { return authority_; }

private:
    void start(const std::filesystem::path& program, const std::string& anchor);
    void readAddress(int output);

    pid_t process_ = -1;
    int lifeline_ = -1;  ///< the child's standard input; it ends when this closes
    std::string address_;
    std::filesystem::path authority_;
};

}  // namespace app
