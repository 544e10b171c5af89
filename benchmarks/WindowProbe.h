#pragma once

#include <chrono>
#include <string>

#include <QGuiApplication>
#include <QTimer>

namespace probe {

using Steady = std::chrono::steady_clock;

double milliseconds(Steady::duration time);

/// Since the system has started this process.
double sinceProcessStart();

/// A figure of a file of the kernel's like "VmHWM:   1234 kB", in MB.
double megabytesIn(const char* file, const std::string& key);

/// Processor time of all threads so far.
double processorMilliseconds();

/// In milliseconds: the clock on the wall, and what the calling thread has had of a processor,
/// which tells the window's own work from other programs' where a computer is busy.
struct Moment {
    double wall = 0;
    double processor = 0;

    static Moment now();
    Moment operator-(const Moment& other) const {
        return {wall - other.wall, processor - other.processor};
    }
    /// By the clock on the wall.
    bool operator<(const Moment& other) const { return wall < other.wall; }
};

/// An application that knows its slowest event and its slowest frame.
class Application : public QGuiApplication {
public:
    Application(int& count, char** words);

    bool notify(QObject* receiver, QEvent* event) override;

    struct Slowest {
        Moment turn{};   ///< between two beats of a timer of 1 ms
        Moment frame{};  ///< of a window: its items arranged, synchronised and drawn
        Moment event{};
        std::string name{};  ///< of that event
        int frames = 0;
        int longFrames = 0;  ///< that took more than 16 ms
    };
    /// Since the last call.
    Slowest take();
    /// From now on no turns are measured.
    void stopHeart() { heart_.stop(); }

private:
    int depth_ = 0;
    Slowest slowest_{};
    Moment lastBeat_ = Moment::now();
    QTimer heart_;
};

}  // namespace probe
