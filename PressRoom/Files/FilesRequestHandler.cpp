#include "PressRoom/Files/FilesRequestHandler.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "PressRoom/Server/Conditional.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

namespace fs = std::filesystem;

/// XML is served without a charset, so that a captured feed keeps the encoding that its prolog
/// names.
std::string contentType(const fs::path& file) {
    const auto extension = file.extension().string();
    if (extension == ".xml" || extension == ".rss" || extension == ".atom" || extension == ".rdf") {
        return "application/xml";
    }
    if (extension == ".html" || extension == ".htm") return "text/html";
    if (extension == ".json") return "application/json";
    if (extension == ".txt" || extension == ".opml") return "text/plain; charset=utf-8";
    return "application/octet-stream";
}

bool isInside(const fs::path& file, const fs::path& directory) {
    const auto relative = file.lexically_relative(directory);
    return !relative.empty() && *relative.begin() != "..";
}

std::string percentEncoded(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '_' || c == '~' ||
                           c == '/';
        result += plain ? std::string(1, c) : fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
    return result;
}

std::chrono::sys_seconds lastModified(const fs::path& file) {
    const auto written = std::chrono::file_clock::to_sys(fs::last_write_time(file));
    return std::chrono::floor<std::chrono::seconds>(written);
}

std::optional<std::string> contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return std::nullopt;
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

}  // namespace

FilesRequestHandler::FilesRequestHandler(const fs::path& directory)
    : directory_(fs::canonical(directory)) {
    if (!fs::is_directory(directory_)) {
        throw fs::filesystem_error("not a folder", directory_,
                                   std::make_error_code(std::errc::not_a_directory));
    }
}

std::optional<Response> FilesRequestHandler::answer(const Request& request,
                                                    std::chrono::sys_seconds) const {
    if (!kit::isHostOrSubhost(request.host, host)) return std::nullopt;
    auto name = kit::percentDecoded(request.path());
    name.erase(0, name.find_first_not_of('/'));
    if (name.empty() || request.path() == "/") return index();
    // A zero byte would end the name for the system but not for these checks.
    if (name.find('\0') != std::string::npos) return std::nullopt;

    std::error_code missing;
    const auto file = fs::canonical(directory_ / name, missing);
    if (missing || !isInside(file, directory_) || !fs::is_regular_file(file)) return std::nullopt;
    auto bytes = contents(file);
    if (!bytes) return htmlPage(403, "Forbidden", "<p>The file cannot be read.</p>");
    return answerConditionally(request, {.body = *std::move(bytes),
                                         .contentType = contentType(file),
                                         .lastModified = lastModified(file)});
}

Response FilesRequestHandler::index() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(directory_)) {
        if (entry.is_regular_file())
            names.push_back(entry.path().lexically_relative(directory_).generic_string());
    }
    std::sort(names.begin(), names.end());
    std::string list = "<ul>\n";
    for (const auto& name : names) {
        list +=
            fmt::format("<li><a href=\"/{}\">{}</a></li>\n", percentEncoded(name), escaped(name));
    }
    return htmlPage(200, "Files of the press room", list + "</ul>");
}

}  // namespace pressroom
