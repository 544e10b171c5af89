#include "PressRoom/WorldDirectory.h"

namespace pressroom {

std::filesystem::path defaultWorldDirectory() {
    namespace fs = std::filesystem;
    std::error_code unknown;
    const auto program = fs::read_symlink("/proc/self/exe", unknown);
    if (!unknown) {
        const auto installed = program.parent_path().parent_path() / "share/tarnwick-brell/world";
        if (fs::is_directory(installed)) return installed;
    }
    return PRESSROOM_WORLD;
}

}  // namespace pressroom
