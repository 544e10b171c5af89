#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "PressRoom/Filings/FilingsWorld.h"
#include "PressRoom/RequestHandler.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// Serves the SEC's lists of filings and its archive.
///
/// Answers depend only on the anchor and the moment.
class FilingsRequestHandler : public RequestHandler {
public:
    /// Removes its own entries from `misbehaviours`: "filings" for the feeds, "filings-archive" for
    /// lists and documents. Throws std::runtime_error when one of them can't misbehave in that way.
    FilingsRequestHandler(WorldFilings world, std::chrono::sys_seconds anchor,
                          Misbehaviours& misbehaviours);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    Response feed(const Request& request, std::chrono::sys_seconds now) const;
    Response list(const Request& request, std::chrono::sys_seconds now) const;
    Response archived(const Request& request, std::chrono::sys_seconds now) const;

    WorldFilings world_;
    std::chrono::sys_seconds anchor_;
    std::optional<MisbehaviourKind> feedFault_;
    std::optional<MisbehaviourKind> archiveFault_;
};

}  // namespace pressroom
