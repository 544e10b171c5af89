#pragma once

#include <functional>
#include <string>
#include <vector>

#include "PressRoom/Server/Message.h"

/// Answers for trackers.
namespace app::test {

/// Services by name; one that ends in "!" has an ongoing incident, one in "!!" a second, newer.
pressroom::Response statusAnswer(const std::vector<std::string>& services);
/// iOS with a public build and a beta.
pressroom::Response releasesAnswer(const std::string& general, const std::string& beta);
pressroom::Response boardAnswer(const std::vector<std::string>& symbols);
pressroom::Response eventsAnswer(const std::vector<std::string>& titles);
pressroom::Response quoteAnswer(const std::string& symbol, const std::string& range, double price);

// Bodies whose items are the words of a list.
/// "26.6+ 26.5": a build for each word, whose version it is; signed with a "+".
std::string signingBody(const std::string& list, const std::string& name = "Phone");
/// "26.6 26.5": an iOS offer for each version.
std::string updatesBody(const std::string& list);
/// An app for each word, which is its id.
std::string chartBody(const std::string& list);
/// What `item` makes of each word, separated by commas.
std::string joined(const std::string& list,
                   const std::function<std::string(const std::string& word)>& item);

}  // namespace app::test
