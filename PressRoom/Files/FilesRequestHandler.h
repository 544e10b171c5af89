#pragma once

#include <filesystem>
#include <string_view>

#include "PressRoom/RequestHandler.h"

namespace pressroom {

/// Serves the files of one folder, and their list at "/", under a host of its own and all its
/// subdomains (many hosts for benchmarks). Nothing outside the folder is ever read, whatever ".."
/// or symbolic link an address contains.
class FilesRequestHandler : public RequestHandler {
public:
    static constexpr std::string_view host = "files.press-room.example";

    /// Throws std::filesystem::filesystem_error when there is no such folder.
    explicit FilesRequestHandler(const std::filesystem::path& directory);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    Response index() const;

    std::filesystem::path directory_;
};

}  // namespace pressroom
