#pragma once

#include <map>
#include <string>
#include <string_view>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/World/PublishedWorld.h"

namespace pressroom {

/// Serves the redirect host of news searches: a page without the article's address for each opaque
/// identifier, and the batch request with which the page's script would ask for it.
class RedirectRequestHandler : public RequestHandler {
public:
    /// `world` must outlive it.
    explicit RedirectRequestHandler(const PublishedWorld& world);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;
    std::optional<Response> answerForm(const Request& request,
                                       std::chrono::sys_seconds now) const override;

private:
    const Item* find(std::string_view identifier, std::chrono::sys_seconds now) const;

    std::map<std::string, const Item*, std::less<>> items_;  ///< by identifier
};

}  // namespace pressroom
