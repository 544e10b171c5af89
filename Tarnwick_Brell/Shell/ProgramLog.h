#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace app {

/// The log of this process while the object lives: to the file, and also to standard error when
/// that is the journal's or `toStandardError` is set. Qt's own messages get the category `window`.
class ProgramLog {
public:
    struct Options {
        std::filesystem::path file;
        std::string levels = "info";   ///< as LogLevels::parse reads them
        bool toStandardError = false;  ///< requested by the user
    };

    /// Throws std::invalid_argument when the levels are invalid.
    explicit ProgramLog(const Options& options);
    ~ProgramLog();
    ProgramLog(const ProgramLog&) = delete;
    ProgramLog& operator=(const ProgramLog&) = delete;
};

}  // namespace app
