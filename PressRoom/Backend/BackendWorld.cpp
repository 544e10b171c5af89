#include "PressRoom/Backend/BackendWorld.h"

#include <tuple>

#include "PressRoom/World/DataFile.h"

namespace kit {

using namespace pressroom;

template <>
struct JSONFields<WorldFileEntry> {
    static constexpr auto fields = std::tuple{
        field("text", &WorldFileEntry::text), field("minutesAgo", &WorldFileEntry::minutesAgo),
        field("goneMinutesAgo", &WorldFileEntry::goneMinutesAgo),
        field("copies", &WorldFileEntry::copies)};
};

template <>
struct JSONFields<WorldPublicFile> {
    static constexpr auto fields = std::tuple{
        field("host", &WorldPublicFile::host),           field("path", &WorldPublicFile::path),
        field("type", &WorldPublicFile::type),           field("head", &WorldPublicFile::head),
        field("separator", &WorldPublicFile::separator), field("tail", &WorldPublicFile::tail),
        field("entries", &WorldPublicFile::entries)};
};

template <>
struct JSONFields<WorldPublicFiles> {
    static constexpr auto fields = std::tuple{field("files", &WorldPublicFiles::files)};
};

}  // namespace kit

namespace pressroom {

WorldPublicFiles readPublicFiles(const std::filesystem::path& directory) {
    return readDataFile<WorldPublicFiles>(
        directory / "backend" / "files.json", [](const WorldPublicFiles& world) {
            for (const auto& file : world.files) {
                if (file.entries.empty()) throw kit::RecordError(file.path, "it has no entries");
            }
        });
}

}  // namespace pressroom
