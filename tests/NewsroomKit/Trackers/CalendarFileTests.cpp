#include <gtest/gtest.h>

#include <sstream>

#include "NewsroomKit/Trackers/Events/CalendarFile.h"

namespace kit {
namespace {

const Instant kNow = parseISO8601("2026-11-20T17:06:09Z").value();

/// The value of a property, its folded lines joined again.
std::string valueOf(std::string file, const std::string& name) {
    for (auto fold = file.find("\r\n "); fold != file.npos; fold = file.find("\r\n ", fold))
        file.erase(fold, 3);
    const auto begin = file.find("\r\n" + name);
    if (begin == file.npos) return "none";
    return file.substr(begin + 2 + name.size(),
                       file.find("\r\n", begin + 2) - begin - 2 - name.size());
}

TEST(CalendarFile, WritesMomentsInUTCAndDaysWithoutATime) {
    AppleCalendarEvent event{.id = "e1",
                             .title = "In stores",
                             .starts = parseISO8601("2026-11-26T07:00:00.25Z").value(),
                             .status = "announced",
                             .source = "https://shop.example/?a=1,2;3"};
    const auto file = calendarFile(event, "20261126", kNow);
    EXPECT_TRUE(file.starts_with("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:"));
    EXPECT_TRUE(file.ends_with("END:VEVENT\r\nEND:VCALENDAR\r\n"));
    EXPECT_EQ(valueOf(file, "DTSTAMP:"), "20261120T170609Z");
    EXPECT_EQ(valueOf(file, "DTSTART"), ":20261126T070000Z");
    EXPECT_EQ(valueOf(file, "URL:"), "https://shop.example/?a=1,2;3") << "no text, so not escaped";
    event.status = "expected";
    event.source = "javascript:alert(1)";
    const auto day = calendarFile(event, "20261126", kNow);
    EXPECT_EQ(valueOf(day, "DTSTART"), ";VALUE=DATE:20261126");
    EXPECT_EQ(valueOf(day, "URL:"), "none");
}

TEST(CalendarFile, EscapesTextAndFoldsLinesWithoutSplittingACharacter) {
    const std::pair<std::string, std::string> cases[] = {
        {"Maps; Mail, Pay", "Maps\\; Mail\\, Pay"},
        {"a\\b\nc\r\x01"
         "d",
         "a\\\\b\\ncd"},
        {"\r\nATTACH:https://bad.example", "\\nATTACH:https://bad.example"},
        {std::string(200, 'x'), std::string(200, 'x')},
    };
    for (const auto& [title, written] : cases)
        EXPECT_EQ(valueOf(calendarFile({.id = "e", .title = title}, "", kNow), "SUMMARY:"),
                  written);

    for (std::size_t shift = 0; shift < 4; ++shift) {
        std::string title(shift, 'a');
        for (int i = 0; i < 40; ++i) title += "€";
        const auto file = calendarFile({.id = "e", .title = title}, "", kNow);
        EXPECT_EQ(valueOf(file, "SUMMARY:"), title);
        std::istringstream lines(file);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(line.size(), 76u) << "75 octets and the carriage return";
            const auto first = static_cast<unsigned char>(line[line.starts_with(' ') ? 1 : 0]);
            EXPECT_NE(first & 0xC0, 0x80) << "a line begins with a whole character";
        }
    }
}

}  // namespace
}  // namespace kit
