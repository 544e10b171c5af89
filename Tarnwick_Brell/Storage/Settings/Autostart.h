#pragma once

#include <filesystem>
#include <string>

namespace app {

/// The entry in the user's folder of autostart, by which the desktop opens the window when a
/// session begins. The entry is the only memory of this setting, since tools of the desktop remove
/// it or switch it off too.
class Autostart {
public:
    /// A desk whose settings are not in the usual place is started with the folder of `settings`.
    explicit Autostart(const std::filesystem::path& settings);

    /// The desktop starts this desk, and not one in another folder.
    bool isOn() const;
    /// Throws StoreError.
    void set(bool on) const;

private:
    std::filesystem::path entry_;
    std::string command_;  ///< as an Exec line has it
};

}  // namespace app
