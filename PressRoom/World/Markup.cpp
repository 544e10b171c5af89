#include "PressRoom/World/Markup.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

namespace pressroom {
namespace {

std::tm utc(std::chrono::sys_seconds instant) {
    return fmt::gmtime(std::chrono::system_clock::to_time_t(instant));
}

}  // namespace

std::string escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '&': result += "&amp;"; break;
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '"': result += "&quot;"; break;
            default: result += c;
        }
    }
    return result;
}

std::string cdata(std::string_view text) {
    std::string result = "<![CDATA[";
    for (auto end = text.find("]]>"); end != std::string_view::npos; end = text.find("]]>")) {
        result.append(text.substr(0, end + 2)).append("]]><![CDATA[");
        text.remove_prefix(end + 2);
    }
    return result.append(text).append("]]>");
}

std::string element(std::string_view name, std::string_view text) {
    return fmt::format("<{0}>{1}</{0}>\n", name, escaped(text));
}

std::string mailDate(std::chrono::sys_seconds instant) {
    return fmt::format("{:%a, %d %b %Y %H:%M:%S} +0000", utc(instant));
}

std::string pacificDate(std::chrono::sys_seconds instant) {
    return fmt::format("{:%a, %d %b %Y %H:%M:%S} PST", utc(instant - std::chrono::hours(8)));
}

std::string shortMailDate(std::chrono::sys_seconds instant) {
    return fmt::format("{:%d %b %Y %H:%M} +0000", utc(instant));
}

std::string isoDate(std::chrono::sys_seconds instant, std::string_view zone) {
    return fmt::format("{:%Y-%m-%dT%H:%M:%S}{}", utc(instant), zone);
}

}  // namespace pressroom
