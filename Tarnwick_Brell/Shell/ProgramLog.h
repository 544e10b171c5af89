#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace app {

/// The log of this process while it lives: to the file, and beside it to standard error, when that
/// is the journal's or `toStandardError` is set. Qt's own messages come in as the window's.
class ProgramLog {
public:
    struct Options {
        std::filesystem::path file;
        std::string levels = "info";   ///< as LogLevels::parse reads them
        bool toStandardError = false;  ///< asked for by the one who started the program
    };

    /// Throws std::invalid_argument when the levels do not read.
    explicit ProgramLog(const Options& options);
    ~ProgramLog();
    ProgramLog(const ProgramLog&) = delete;
    ProgramLog& operator=(const ProgramLog&) = delete;
};

}  // namespace app
