#include "Tarnwick_Brell/Shell/ProgramLog.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

#include <QString>
#include <QtGlobal>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Shell/LogFile.h"

namespace app {

using kit::LogCategory;
using kit::LogLevel;

namespace {

/// Whether standard error goes to the system's journal, which identifies the stream by device and
/// inode.
bool isJournal() {
    const char* named = std::getenv("JOURNAL_STREAM");
    struct stat stream{};
    return named && ::fstat(STDERR_FILENO, &stream) == 0 &&
           fmt::format("{}:{}", stream.st_dev, stream.st_ino) == named;
}

/// The syslog priorities that the journal reads from the front of a line.
int priorityOf(LogLevel level) {
    switch (level) {
        case LogLevel::error: return 3;
        case LogLevel::warning: return 4;
        case LogLevel::info: return 6;
        case LogLevel::off:
        case LogLevel::debug: return 7;
    }
    return 7;
}

LogLevel levelOf(QtMsgType type) {
    switch (type) {
        case QtDebugMsg: return LogLevel::debug;
        case QtInfoMsg: return LogLevel::info;
        case QtWarningMsg: return LogLevel::warning;
        case QtCriticalMsg:
        case QtFatalMsg: return LogLevel::error;
    }
    return LogLevel::warning;
}

QtMessageHandler previousHandler = nullptr;

/// Copies Qt's messages into the log; Qt still prints them.
void logQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    kit::log(LogCategory::window, levelOf(type), "{}", text.toStdString());
    if (previousHandler) previousHandler(type, context, text);
}

}  // namespace

ProgramLog::ProgramLog(const Options& options) {
    auto file = std::make_shared<LogFile>(options.file);
    const bool journal = isJournal();
    const bool prints = options.toStandardError && !journal;
    kit::setLog(kit::LogLevels::parse(options.levels),
                [file, journal, prints](const kit::LogLine& line) {
                    file->write(line);
                    if (journal) {
                        fmt::print(stderr, "<{}>{} {}\n", priorityOf(line.level),
                                   kit::rawValue(line.category), line.text);
                    } else if (prints) {
                        fmt::print(stderr, "{}\n", kit::logLineText(line));
                    }
                });
    previousHandler = qInstallMessageHandler(&logQtMessage);
}

ProgramLog::~ProgramLog() {
    qInstallMessageHandler(previousHandler);
    kit::setLog({}, {});
}

}  // namespace app
