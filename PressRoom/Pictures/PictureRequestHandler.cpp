#include "PressRoom/Pictures/PictureRequestHandler.h"

#include "PressRoom/Pictures/Drawing.h"
#include "PressRoom/Server/Conditional.h"
#include "PressRoom/World/Address.h"

namespace pressroom {
namespace {

constexpr std::string_view kIconHost = "is1-ssl.mzstatic.com";
constexpr std::string_view kIconEnd = ".png";

Response pictureAnswer(const Request& request, const Bitmap& bitmap) {
    return answerConditionally(request, {.body = pngFile(bitmap), .contentType = "image/png"});
}

}  // namespace

PictureRequestHandler::PictureRequestHandler(const World& world) {
    for (const auto& source : world) {
        for (const auto& story : source.stories) {
            if (story.picture && !story.picture->missing.value_or(false))
                pictures_.insert(lookupKey(story.picture->url));
        }
    }
}

std::optional<Response> PictureRequestHandler::answer(const Request& request,
                                                      std::chrono::sys_seconds) const {
    const auto key = lookupKey(request);
    if (request.host == kIconHost && request.path().ends_with(kIconEnd))
        return pictureAnswer(request, drawnIcon(key));
    if (pictures_.contains(key)) return pictureAnswer(request, drawnDevice(key));
    return std::nullopt;
}

}  // namespace pressroom
