#include "NewsroomKit/HTTP/ValidatorTable.h"

#include <algorithm>
#include <utility>

namespace kit {
namespace {

// Servers refuse requests with longer headers, and the source would then fail permanently.
constexpr std::size_t kLongestValue = 8 * 1024;

void dropUnlessSendable(std::optional<std::string>& text) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    if (text && (text->size() > kLongestValue || std::ranges::any_of(*text, isControl))) {
        text.reset();
    }
}

}  // namespace

Validators sendable(Validators validators) {
    dropUnlessSendable(validators.entityTag);
    dropUnlessSendable(validators.lastModified);
    return validators;
}

Validators ValidatorTable::find(const std::string& url) const {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(url);
    return found == entries_.end() ? Validators{} : found->second;
}

void ValidatorTable::store(const std::string& url, Validators validators) {
    validators = sendable(std::move(validators));
    const std::lock_guard lock(mutex_);
    if (validators == Validators{}) {
        entries_.erase(url);
    } else {
        entries_.insert_or_assign(url, std::move(validators));
    }
}

void ValidatorTable::forget(const std::string& url) {
    const std::lock_guard lock(mutex_);
    entries_.erase(url);
}

ValidatorTable::Entries ValidatorTable::entries() const {
    const std::lock_guard lock(mutex_);
    return entries_;
}

void ValidatorTable::replace(Entries entries) {
    for (auto& [url, validators] : entries) validators = sendable(std::move(validators));
    std::erase_if(entries, [](const auto& entry) { return entry.second == Validators{}; });
    const std::lock_guard lock(mutex_);
    entries_ = std::move(entries);
}

}  // namespace kit
