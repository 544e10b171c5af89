#pragma once

#include <filesystem>
#include <string>

#include "NewsroomKit/Library/EvidencePack.h"
#include "Tarnwick_Brell/Storage/Files/WholeFiles.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

/// All that the library knows of a project: its members with the texts kept of them, their
/// headlines, when the desk saw them first, the corrections of them, and every signal that was seen
/// in their time. Throws StoreError.
kit::Evidence projectEvidence(LocalStore& store, const kit::Project& project, kit::Instant madeAt,
                              std::string program);

enum class PackShape { folder, zip };

struct WrittenPack {
    std::filesystem::path path{};
    std::size_t files = 0;
};

/// Writes the pack into `folder`, which is made if need be, under the project's name: whole or not
/// at all. Throws StoreError, as when the disk is full, and std::length_error for what no .zip
/// holds.
WrittenPack writePack(const kit::Evidence& evidence, const std::filesystem::path& folder,
                      PackShape shape, Existing existing, const kit::TimeZone& zone);

}  // namespace app
