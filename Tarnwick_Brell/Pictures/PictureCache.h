#pragma once

#include <cstdint>
#include <filesystem>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace app {

/// Fetched pictures on disk, so that they are there without a network. When they exceed the limit,
/// those that were used longest ago are deleted. The files are for their owner only, and their
/// names do not tell the addresses. A file that can't be read or written is a picture that is not
/// in the cache.
class PictureCache {
public:
    /// `limit` is in bytes. Nothing is created before the first picture is stored.
    PictureCache(std::filesystem::path folder, std::uint64_t limit);

    /// Finding a picture is using it.
    std::optional<std::string> find(std::string_view address);
    void store(std::string_view address, std::string_view bytes);
    void remove(std::string_view address);

private:
    struct Entry {
        std::string name;
        std::uint64_t size = 0;
    };
    using Entries = std::list<Entry>;

    void readFolder();
    void insert(const std::string& name, std::uint64_t size);
    void erase(Entries::iterator entry);

    std::filesystem::path folder_;
    std::uint64_t limit_;
    Entries entries_;  ///< the last used first
    std::unordered_map<std::string, Entries::iterator> places_;
    std::uint64_t size_ = 0;
};

}  // namespace app
