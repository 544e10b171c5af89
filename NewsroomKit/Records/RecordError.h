#pragma once

#include <stdexcept>
#include <string>

namespace kit {

/// A JSON value does not have the form of the expected record. `path` locates the fault
/// ("panels[2].frame.width"; empty for the value itself); what() is the whole sentence.
class RecordError : public std::runtime_error {
public:
    RecordError(std::string path, std::string reason);

    const std::string& path() const { return path_; }
    const std::string& reason() const { return reason_; }

    /// The same fault, with its path prefixed by `step`, the key under which the outer record holds
    /// this one.
    RecordError inside(const std::string& step) const;

private:
    std::string path_;
    std::string reason_;
};

}  // namespace kit
