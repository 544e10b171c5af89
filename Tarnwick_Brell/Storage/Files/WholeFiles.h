#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace app {

/// What becomes of a file or folder that has the name already.
enum class Existing { stays, isReplaced };

/// A file that is written beside its place and moved there when it is complete: a full disk or a
/// kill leaves none, or the former one. For exports, which others may read as far as the umask
/// allows.
class WholeFile {
public:
    /// Throws StoreError when one is there that has to stay.
    WholeFile(std::filesystem::path file, Existing existing);
    /// Removes what is not complete.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Throws StoreError, as when the disk is full.
    void write(std::string_view bytes);
    void commit();

private:
    std::filesystem::path file_;
    std::filesystem::path unfinished_;
    Existing existing_;
    int descriptor_ = -1;
};

/// The same of a folder with its files.
class WholeFolder {
public:
    WholeFolder(std::filesystem::path folder, Existing existing);
    ~WholeFolder();
    WholeFolder(const WholeFolder&) = delete;
    WholeFolder& operator=(const WholeFolder&) = delete;

    /// A file below the folder; folders in its path are made.
    void write(const std::filesystem::path& path, std::string_view bytes);
    void commit();

private:
    std::filesystem::path folder_;
    std::filesystem::path unfinished_;
    Existing existing_;
};

}  // namespace app
