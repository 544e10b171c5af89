#include "NewsroomKit/Records/RecordError.h"

namespace kit {

namespace {

std::string sentence(const std::string& path, const std::string& reason) {
    return path.empty() ? reason : path + ": " + reason;
}

}  // namespace

RecordError::RecordError(std::string path, std::string reason)
    : std::runtime_error(sentence(path, reason)),
      path_(std::move(path)),
      reason_(std::move(reason)) {}

RecordError RecordError::inside(const std::string& step) const {
    if (path_.empty()) return {step, reason_};
    const bool element = path_.front() == '[';
    return {step + (element ? "" : ".") + path_, reason_};
}

}  // namespace kit
