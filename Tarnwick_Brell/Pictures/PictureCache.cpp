#include "Tarnwick_Brell/Pictures/PictureCache.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

#include <QByteArray>
#include <QCryptographicHash>

#include "Tarnwick_Brell/Storage/Files/PrivateFiles.h"

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kNameLength = 64;
/// Of a file that is being written.
constexpr const char* kPartName = "part";

std::string nameOf(std::string_view address) {
    const QByteArray bytes(address.data(), static_cast<qsizetype>(address.size()));
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
}

/// The time of the last change is that of the last use, also for the next run.
void markUsed(const fs::path& file) { utimensat(AT_FDCWD, file.c_str(), nullptr, 0); }

std::optional<std::string> contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    if (!stream || !(bytes << stream.rdbuf())) return std::nullopt;
    return std::move(bytes).str();
}

bool writeWhole(const fs::path& file, std::string_view bytes) {
    const auto part = file.parent_path() / kPartName;
    std::error_code error;
    fs::remove(part, error);
    makePrivateFile(part);
    std::ofstream stream(part, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (stream) {
        fs::rename(part, file, error);
        if (!error) return true;
    }
    fs::remove(part, error);
    return false;
}

}  // namespace

PictureCache::PictureCache(fs::path folder, std::uint64_t limit)
    : folder_(std::move(folder)), limit_(limit) {
    readFolder();
}

void PictureCache::readFolder() {
    struct Found {
        fs::file_time_type used;
        std::string name;
        std::uint64_t size;
    };
    restrictToOwner(folder_);
    std::vector<Found> files;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(folder_, none)) {
        const auto name = entry.path().filename().string();
        if (name.size() != kNameLength || !entry.is_regular_file(none) || entry.is_symlink(none))
            continue;
        std::error_code gone;
        const auto size = entry.file_size(gone);
        const auto used = entry.last_write_time(gone);
        if (!gone) files.push_back({used, name, size});
    }
    std::ranges::sort(files, {}, &Found::used);
    for (const auto& file : files) insert(file.name, file.size);
}

/// Makes it the one that was used last.
void PictureCache::insert(const std::string& name, std::uint64_t size) {
    if (const auto known = places_.find(name); known != places_.end()) erase(known->second);
    entries_.push_front({name, size});
    places_.emplace(name, entries_.begin());
    size_ += size;
    while (size_ > limit_) {
        std::error_code ignored;
        fs::remove(folder_ / entries_.back().name, ignored);
        erase(std::prev(entries_.end()));
    }
}

void PictureCache::erase(Entries::iterator entry) {
    size_ -= entry->size;
    places_.erase(entry->name);
    entries_.erase(entry);
}

std::optional<std::string> PictureCache::find(std::string_view address) {
    const auto place = places_.find(nameOf(address));
    if (place == places_.end()) return std::nullopt;
    const auto file = folder_ / place->first;
    auto bytes = contentsOf(file);
    if (!bytes) {
        erase(place->second);
        return std::nullopt;
    }
    entries_.splice(entries_.begin(), entries_, place->second);
    markUsed(file);
    return bytes;
}

void PictureCache::store(std::string_view address, std::string_view bytes) {
    const auto name = nameOf(address);
    // The folder above it may be missing too.
    if (makePrivateFolder(folder_.parent_path()) || makePrivateFolder(folder_)) return;
    if (!writeWhole(folder_ / name, bytes)) return;
    insert(name, bytes.size());
}

void PictureCache::remove(std::string_view address) {
    const auto place = places_.find(nameOf(address));
    if (place == places_.end()) return;
    std::error_code ignored;
    fs::remove(folder_ / place->first, ignored);
    erase(place->second);
}

}  // namespace app
