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

/// A figure such as "VmHWM:   1234 kB" from one of the kernel's files, in MB.
double megabytesIn(const char* file, const std::string& key);

/// The processor time of all threads so far.
double processorMilliseconds();

/// In milliseconds: wall-clock time and the calling thread's processor time, which excludes other
/// programs on a busy computer.
struct Moment {
    double wall = 0;
    double processor = 0;

    static Moment now();
    Moment operator-(const Moment& other) const {
        return {wall - other.wall, processor - other.processor};
    }
    /// Compares wall-clock times.
    bool operator<(const Moment& other) const { return wall < other.wall; }
};

/// An application that records its slowest event and its slowest frame.
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
    /// Stops measuring turns of the event loop.
    void stopHeart() { heart_.stop(); }

private:
    int depth_ = 0;
    Slowest slowest_{};
    Moment lastBeat_ = Moment::now();
    QTimer heart_;
};

}  // namespace probe
