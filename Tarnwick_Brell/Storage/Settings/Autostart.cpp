#include "Tarnwick_Brell/Storage/Settings/Autostart.h"

#include <fstream>
#include <system_error>

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"

namespace app {

namespace {

namespace fs = std::filesystem;

constexpr const char* kProgram = "tarnwick-brell";

/// The window's program beside this one, which may be `brell`.
fs::path windowProgram() {
    std::error_code error;
    const auto beside = fs::read_symlink("/proc/self/exe", error).parent_path() / kProgram;
    return !error && fs::exists(beside, error) ? beside : fs::path(kProgram);
}

/// An argument of an Exec line: quoted, and then escaped once more as every text of an entry is.
std::string quoted(const std::string& argument) {
    std::string text = "\"";
    for (const char c : argument) {
        if (c == '"' || c == '`' || c == '$') text += "\\\\";
        if (c == '\\') text += "\\\\\\";
        if (c == '%') text += '%';
        text += c;
    }
    return text + '"';
}

StoreError unwritable(const fs::path& entry) {
    return {
        StoreError::Reason::readOnly,
        "The file " + entry.string() + ", by which the desktop starts the desk, can't be changed."};
}

}  // namespace

Autostart::Autostart(const fs::path& settings)
    : entry_(configFolder() / "autostart" / fmt::format("{}.desktop", kProgram)),
      command_(quoted(windowProgram().string())) {
    if (settings != Paths::forUser(std::nullopt).settings)
        command_ +=
            fmt::format(" --data-dir {}", quoted(fs::absolute(settings).parent_path().string()));
}

bool Autostart::isOn() const {
    std::ifstream file(entry_);
    bool isOurs = false;
    for (std::string line; std::getline(file, line);) {
        if (line == "Hidden=true" || line == "X-GNOME-Autostart-enabled=false") return false;
        isOurs |= line == "Exec=" + command_;
    }
    return isOurs;
}

void Autostart::set(bool on) const {
    std::error_code error;
    if (!on) {
        if (isOn() && !fs::remove(entry_, error)) throw unwritable(entry_);
        return;
    }
    fs::create_directories(entry_.parent_path(), error);
    std::ofstream file(entry_, std::ios::trunc);
    file << "[Desktop Entry]\nType=Application\nName=Tarnwick Brell\nIcon=tarnwick-brell\nExec="
         << command_ << '\n';
    if (!file.flush()) throw unwritable(entry_);
}

}  // namespace app
