#include "tests/NewsroomKit/HTTP/NameLookup.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string_view>
#include <utility>

#include <dlfcn.h>
#include <netdb.h>

namespace kit::test {
namespace {

struct Lookups {
    std::mutex mutex;
    std::condition_variable changed;
    std::string endless;
    int visitors = 0;
};

/// Never destroyed: a lookup given up by its transfer may outlive main.
Lookups& lookups() {
    static auto* const forever = new Lookups;
    return *forever;
}

void stayWhileEndless(std::string_view host) {
    auto& state = lookups();
    std::unique_lock lock(state.mutex);
    if (state.endless != host) return;
    ++state.visitors;
    state.changed.wait_for(lock, std::chrono::seconds(30), [&] { return state.endless != host; });
}

}  // namespace

BlackHole::BlackHole(std::string host) {
    const std::lock_guard lock(lookups().mutex);
    lookups().endless = std::move(host);
    lookups().visitors = 0;
}

BlackHole::~BlackHole() {
    const std::lock_guard lock(lookups().mutex);
    lookups().endless.clear();
    lookups().changed.notify_all();
}

int BlackHole::visitors() const {
    const std::lock_guard lock(lookups().mutex);
    return lookups().visitors;
}

}  // namespace kit::test

/// Takes the place of the C library's, for curl too.
extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints,
                           addrinfo** result) {
    const std::string_view host = node == nullptr ? "" : node;
    using Lookup = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
    static const auto system = reinterpret_cast<Lookup>(dlsym(RTLD_NEXT, "getaddrinfo"));
    if (!host.ends_with(".example")) return system(node, service, hints, result);
    if (host == kit::test::kUnreachableHost) {
        return system("255.255.255.255", service, hints, result);
    }
    if (host == kit::test::kHalfReachableHost) {
        system("127.0.0.1", service, hints, result);
        return system("255.255.255.255", service, hints, &(*result)->ai_next);
    }
    kit::test::stayWhileEndless(host);
    return EAI_NONAME;
}
