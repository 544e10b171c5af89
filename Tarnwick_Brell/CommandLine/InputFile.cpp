#include "Tarnwick_Brell/CommandLine/InputFile.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

namespace cli {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

std::string readInput(const std::string& file, std::size_t limit) {
    const auto fail = [&] {
        throw WorkFailed(fmt::format("{} can't be read ({}).",
                                     file == "-" ? "The standard input" : printable(file),
                                     std::generic_category().message(errno)));
    };
    const bool isInput = file == "-";
    const std::unique_ptr<std::FILE, CloseFile> opened(isInput ? nullptr
                                                               : std::fopen(file.c_str(), "rb"));
    if (!isInput && !opened) fail();
    std::FILE* const stream = isInput ? stdin : opened.get();
    std::string bytes(limit + 1, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), stream));
    if (std::ferror(stream)) fail();
    return bytes;
}

}  // namespace cli
