#include "NewsroomKit/Trackers/Events/CalendarFile.h"

#include <chrono>
#include <cstddef>
#include <string_view>

#include <fmt/format.h>

namespace kit {

namespace {

// Octets of a line without its end (section 3.1).
constexpr std::size_t kLongestLine = 75;

/// A value of type TEXT (section 3.3.11). Other control characters are not allowed in one.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '\\':
            case ';':
            case ',': result += {'\\', c}; break;
            case '\n': result += "\\n"; break;
            default:
                if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F) result += c;
        }
    }
    return result;
}

bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// Long lines go on in the next one, which begins with a space; no character is split.
void addLine(std::string& file, std::string_view line) {
    std::size_t room = kLongestLine;
    while (line.size() > room) {
        auto end = room;
        while (end > 0 && isContinuation(line[end])) --end;
        if (end == 0) end = room;
        file.append(line.substr(0, end)).append("\r\n ");
        line.remove_prefix(end);
        room = kLongestLine - 1;
    }
    file.append(line).append("\r\n");
}

std::string utcText(Instant instant) {
    const auto day = std::chrono::floor<std::chrono::days>(instant);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::seconds>(instant - day));
    return fmt::format("{:04}{:02}{:02}T{:02}{:02}{:02}Z", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       time.hours().count(), time.minutes().count(), time.seconds().count());
}

}  // namespace

bool isWholeDay(const AppleCalendarEvent& event) {
    return event.isAnniversary() || event.status == "expected";
}

std::string calendarFile(const AppleCalendarEvent& event, const std::string& day, Instant now) {
    std::string file;
    const auto add = [&file](const std::string& line) { addLine(file, line); };
    add("BEGIN:VCALENDAR");
    add("VERSION:2.0");
    add("PRODID:-//Tarnwick Brell//Events//EN");
    add("BEGIN:VEVENT");
    add("UID:" + escaped(event.id) + "@tarnwick-brell");
    add("DTSTAMP:" + utcText(now));
    add(isWholeDay(event) ? "DTSTART;VALUE=DATE:" + day : "DTSTART:" + utcText(event.starts));
    add("SUMMARY:" + escaped(event.title));
    if (!event.window.empty()) add("DESCRIPTION:" + escaped(event.window));
    const bool isAddress = event.source.starts_with("https://");
    // An address is a value of its own type: its commas and semicolons stay.
    if (isAddress && event.source.find_first_of("\r\n") == std::string::npos)
        add("URL:" + event.source);
    add("END:VEVENT");
    add("END:VCALENDAR");
    return file;
}

}  // namespace kit
