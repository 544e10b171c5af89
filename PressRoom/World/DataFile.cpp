#include "PressRoom/World/DataFile.h"

#include <fstream>
#include <sstream>

namespace pressroom {

WorldError::WorldError(const std::filesystem::path& file, const std::string& reason)
    : std::runtime_error(file.string() + ": " + reason) {}

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw WorldError(file, "cannot be opened");
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

bool isWebAddress(std::string_view text) { return text.starts_with("https://") && text.size() > 8; }

}  // namespace pressroom
