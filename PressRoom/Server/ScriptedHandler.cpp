#include "PressRoom/Server/ScriptedHandler.h"

#include <utility>

namespace pressroom {
namespace {

std::string routeKey(std::string_view host, std::string_view target) {
    return std::string(host) + std::string(target);
}

}  // namespace

void ScriptedHandler::on(std::string_view host, std::string_view target,
                         std::vector<Response> answers) {
    const std::lock_guard lock(mutex_);
    auto& route = routes_[routeKey(host, target)];
    route.answers.assign(std::make_move_iterator(answers.begin()),
                         std::make_move_iterator(answers.end()));
}

Handler ScriptedHandler::handler() {
    return [this](const Request& request) { return answer(request); };
}

std::vector<Request> ScriptedHandler::requests(std::string_view host,
                                               std::string_view target) const {
    const std::lock_guard lock(mutex_);
    const auto found = routes_.find(routeKey(host, target));
    return found == routes_.end() ? std::vector<Request>{} : found->second.requests;
}

Response ScriptedHandler::answer(const Request& request) {
    const std::lock_guard lock(mutex_);
    auto& route = routes_[routeKey(request.host, request.target)];
    route.requests.push_back(request);
    if (route.answers.empty()) return {.status = 404, .body = "Nothing is scripted here."};
    if (route.answers.size() == 1) return route.answers.front();
    Response next = std::move(route.answers.front());
    route.answers.pop_front();
    return next;
}

}  // namespace pressroom
