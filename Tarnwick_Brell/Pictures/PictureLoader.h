#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include <QImage>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "Tarnwick_Brell/Pictures/PictureDecoder.h"

namespace app {

/// Loads pictures for the window, from the cache on disk or else from the network, and decodes
/// them, all on a thread of its own. The picture that was asked for last comes first: it is the one
/// that has just been scrolled into view. Asks no server and opens no file while it is off.
///
/// All functions may be called from any thread.
class PictureLoader {
public:
    struct Options {
        std::filesystem::path folder{};  ///< of the cache
        kit::CurlTransport::Options network{};
        std::uint64_t cacheLimit = 200'000'000;  ///< in bytes
    };
    using Ticket = std::uint64_t;
    /// Called on the loader's thread, exactly once; with a null image when there is none to show.
    using Done = std::function<void(const QImage&)>;

    /// It is off.
    explicit PictureLoader(Options options);
    /// Calls what has not been called yet.
    ~PictureLoader();
    PictureLoader(const PictureLoader&) = delete;
    PictureLoader& operator=(const PictureLoader&) = delete;

    /// Switching off also ends what is under way.
    void setOn(bool on);

    /// `named` is the address that a story names. After a failure it is not fetched for ten
    /// minutes.
    Ticket load(std::string address, PictureShape shape, Done done);
    /// The picture is no longer needed.
    void cancel(Ticket ticket);
    /// Fetches what failed anew when it is next asked for.
    void forgetFailures();

private:
    struct Impl;
    std::atomic<Ticket> lastTicket_ = 0;
    std::unique_ptr<Impl> impl_;
};

}  // namespace app
