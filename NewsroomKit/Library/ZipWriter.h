#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace kit {

/// Writes a .zip from its first byte to its last, each file as it is added. The same files in the
/// same order give the same bytes: all have one fixed time, and names are UTF-8 whatever the
/// process's locale is.
class ZipWriter {
public:
    using Sink = std::function<void(std::string_view)>;  ///< takes bytes to append

    explicit ZipWriter(Sink sink) : sink_(std::move(sink)) {}

    /// Throws std::length_error beyond what the plain form holds: 65,535 files, 4 GB.
    void add(std::string_view path, std::string_view bytes);

    /// Writes the list of files. Call it once, after the last file.
    void finish();

private:
    void write(std::string_view bytes);

    Sink sink_;
    std::string directory_;
    std::uint64_t written_ = 0;
    std::uint32_t files_ = 0;
};

}  // namespace kit
