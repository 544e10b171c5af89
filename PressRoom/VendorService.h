#pragma once

#include <string>
#include <string_view>

#include "PressRoom/Server/Message.h"

/// Common parts of the vendor service's answers.
namespace pressroom {

inline constexpr std::string_view kMakersHost = "tarnwick-brell.example";

/// The value of a query item as it was sent, percent-encoding and all; empty when there is none.
std::string rawQueryItem(const Request& request, std::string_view name);
/// The same, decoded.
std::string queryItem(const Request& request, std::string_view name);

/// An error in the form of the platform behind the service.
Response errorAnswer(int status, std::string_view code, std::string_view message);

}  // namespace pressroom
