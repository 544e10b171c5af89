#include "Tarnwick_Brell/Shell/LogFile.h"

#include <filesystem>
#include <fstream>
#include <string>

#include <QtGlobal>
#include <gtest/gtest.h>

#include "Tarnwick_Brell/Shell/ProgramLog.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using kit::LogCategory;
using kit::LogLevel;
using kit::LogLevels;

kit::LogLine line(int number, LogLevel level = LogLevel::info) {
    return {.time = kit::Instant{} + std::chrono::seconds(number),
            .level = level,
            .category = LogCategory::feeds,
            .text = "line " + std::to_string(number)};
}

TEST(LogFile, TwoWritersRotateOneFileAndLoseNothingOfTheLastTwoFiles) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "program.log";
    LogFile one(file, 1'000);
    LogFile other(file, 1'000);
    for (int i = 0; i < 60; ++i) (i % 3 == 0 ? one : other).write(line(i));

    EXPECT_LT(std::filesystem::file_size(file), 1'100U);
    EXPECT_LT(std::filesystem::file_size(folder.path() / "program.log.1"), 1'100U);
    const auto lines = readLogFile(file, 1'000, LogLevels::parse("debug"));
    ASSERT_GT(lines.size(), 20U);
    const int first = std::stoi(lines.front().text.substr(5));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].text, "line " + std::to_string(first + static_cast<int>(i)));
    }
    EXPECT_EQ(lines.back().text, "line 59");
    const auto mode = std::filesystem::status(file).permissions() & std::filesystem::perms::all;
    EXPECT_EQ(mode, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(LogFile, ReadingGivesTheNewestLinesOfTheLevelAndSkipsWhatIsNoLogLine) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "program.log";
    {
        LogFile log(file);
        for (int i = 0; i < 10; ++i) log.write(line(i, i % 2 ? LogLevel::error : LogLevel::debug));
    }
    std::ofstream(file, std::ios::app) << "half a li\n";
    const auto lines = readLogFile(file, 3, LogLevels::parse("warning"));
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].text, "line 5");
    EXPECT_EQ(lines[2].text, "line 9");
    EXPECT_TRUE(readLogFile(folder.path() / "none", 3, LogLevels()).empty());
}

TEST(LogFile, AFolderThatCanNotBeWrittenToStopsNothing) {
    LogFile log("/proc/no-such-folder/program.log");
    log.write(line(1));
}

TEST(ProgramLog, WhatQtSaysIsLoggedAsTheWindows) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "program.log";
    {
        const ProgramLog log({.file = file, .levels = "warning"});
        qWarning("a property is bound twice");
        kit::log(LogCategory::desk, LogLevel::info, "not at this level");
    }
    kit::log(LogCategory::desk, LogLevel::error, "after its end");
    const auto lines = readLogFile(file, 10, LogLevels::parse("debug"));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].category, LogCategory::window);
    EXPECT_EQ(lines[0].text, "a property is bound twice");
}

}  // namespace
}  // namespace app
