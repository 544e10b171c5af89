#pragma once

#include <string>
#include <vector>

#include "PressRoom/Server/Message.h"

/// Answers of the trackers' servers.
namespace app::test {

/// Services by name; one that ends in "!" has an ongoing incident, one in "!!" a second, newer.
pressroom::Response statusAnswer(const std::vector<std::string>& services);
/// iOS with a public build and a beta.
pressroom::Response releasesAnswer(const std::string& general, const std::string& beta);
pressroom::Response boardAnswer(const std::vector<std::string>& symbols);
pressroom::Response eventsAnswer(const std::vector<std::string>& titles);
pressroom::Response quoteAnswer(const std::string& symbol, const std::string& range, double price);

}  // namespace app::test
