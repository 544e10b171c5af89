#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace app {

/// The id of a source that a user adds, as in "own-example-1c5f2a90": the feed's host, without what
/// may be secret in its address, and a hash of the canonical address. It depends on nothing else,
/// least of all the name, so that computers agree on it. Where another feed has the id already,
/// the hash is another one.
std::string sourceIDFor(std::string_view feedURL,
                        const std::function<bool(const std::string& id)>& isTaken);

}  // namespace app
