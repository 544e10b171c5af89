#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "PressRoom/Server/Message.h"

namespace pressroom {

/// A representation before content negotiation.
struct Document {
    std::string body;  ///< not encoded
    std::string contentType;
    std::optional<std::chrono::sys_seconds> lastModified = {};
};

/// Answers a request for `document` as a good web server does: with an ETag of the body and a
/// Last-Modified, with 304 when the request's validators still match (If-None-Match takes
/// precedence over If-Modified-Since), and gzipped when the client accepts that.
Response answerConditionally(const Request& request, Document document);

/// A weak tag, since the same one is sent for the plain and the gzipped body.
std::string entityTag(std::string_view body);

/// "Sun, 06 Nov 1994 08:49:37 GMT"
std::string httpDate(std::chrono::sys_seconds instant);

std::optional<std::chrono::sys_seconds> parseHTTPDate(std::string_view text);

std::string gzip(std::string_view bytes);

}  // namespace pressroom
