#include "PressRoom/Server/Conditional.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <stdexcept>

#include <zlib.h>

namespace pressroom {
namespace {

constexpr std::array<const char*, 7> dayNames{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<const char*, 12> monthNames{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string_view withoutWeakMark(std::string_view tag) {
    if (tag.starts_with("W/")) tag.remove_prefix(2);
    return tag;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

bool listsTag(std::string_view list, std::string_view tag) {
    while (!list.empty()) {
        const auto comma = list.find(',');
        const auto candidate = trimmed(list.substr(0, comma));
        if (candidate == "*" || withoutWeakMark(candidate) == withoutWeakMark(tag)) return true;
        list = comma == std::string_view::npos ? "" : list.substr(comma + 1);
    }
    return false;
}

bool stillHolds(const Request& request, const Document& document, std::string_view tag) {
    if (const auto tags = request.header("if-none-match")) return listsTag(*tags, tag);
    const auto since = request.header("if-modified-since");
    if (!since || !document.lastModified) return false;
    const auto instant = parseHTTPDate(*since);
    return instant && *document.lastModified <= *instant;
}

bool acceptsGzip(const Request& request) {
    const auto accepted = request.header("accept-encoding");
    return accepted && accepted->find("gzip") != std::string_view::npos;
}

}  // namespace

Response answerConditionally(const Request& request, Document document) {
    const auto tag = entityTag(document.body);
    Response response;
    response.headers = {{"ETag", tag}, {"Vary", "Accept-Encoding"}};
    if (document.lastModified) {
        response.headers.emplace_back("Last-Modified", httpDate(*document.lastModified));
    }
    if (stillHolds(request, document, tag)) {
        response.status = 304;
        return response;
    }
    response.headers.emplace_back("Content-Type", document.contentType);
    if (acceptsGzip(request) && !document.body.empty()) {
        response.headers.emplace_back("Content-Encoding", "gzip");
        response.body = gzip(document.body);
    } else {
        response.body = std::move(document.body);
    }
    return response;
}

std::string entityTag(std::string_view body) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char byte : body) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "W/\"%016llx\"", static_cast<unsigned long long>(hash));
    return text.data();
}

std::string httpDate(std::chrono::sys_seconds instant) {
    const auto days = std::chrono::floor<std::chrono::days>(instant);
    const std::chrono::year_month_day date(days);
    const std::chrono::hh_mm_ss time(instant - days);
    std::array<char, 64> text{};
    std::snprintf(
        text.data(), text.size(), "%s, %02u %s %04d %02d:%02d:%02d GMT",
        dayNames[std::chrono::weekday(days).c_encoding()], static_cast<unsigned>(date.day()),
        monthNames[static_cast<unsigned>(date.month()) - 1], static_cast<int>(date.year()),
        static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
        static_cast<int>(time.seconds().count()));
    return text.data();
}

std::optional<std::chrono::sys_seconds> parseHTTPDate(std::string_view text) {
    std::tm parts{};
    const std::string terminated(text);
    const char* end = strptime(terminated.c_str(), "%a, %d %b %Y %H:%M:%S GMT", &parts);
    if (end == nullptr || *end != '\0') return std::nullopt;
    return std::chrono::sys_seconds(std::chrono::seconds(timegm(&parts)));
}

std::string gzip(std::string_view bytes) {
    z_stream stream{};
    constexpr int gzipWindow = 15 + 16;  // zlib's way to ask for the gzip wrapper
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, gzipWindow, 8,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
        throw std::runtime_error("zlib refused to start");
    }
    std::string packed(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    const int outcome = deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    if (outcome != Z_STREAM_END) throw std::runtime_error("zlib could not finish");
    return packed;
}

}  // namespace pressroom
