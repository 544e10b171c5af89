#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Filings/OwnershipForm.h"

namespace kit {

/// "Doe Jane sold 97,000 shares at an average of $159.94 under a plan of 16 August 2021."
std::string ownershipSentence(const OwnershipForm& form);

/// Where a note names Rule 10b5-1, as a word of its own: the place behind it.
std::optional<std::size_t> planMention(std::string_view note);

/// The first day written as "August 16, 2021" or "08/16/2021", as "2021-08-16".
std::optional<std::string> writtenDay(std::string_view text);

/// "16 August 2021".
std::string dayInWords(std::string_view day);

/// "15,866" and "134,018.5".
std::string amountInWords(double amount);

}  // namespace kit
