#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QObject>
#include <QString>

#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Window/DeskWindow.h"

namespace app {

/// The windows of the desk over one library: the first, which lives as long as the desk, and
/// those that the user opens beside it. Which are open is remembered for the next start.
class DeskWindows : public QObject {
    Q_OBJECT
public:
    /// More would cost memory for nothing that screens can show.
    static constexpr int kMost = 8;

    /// Makes the first window; nothing is shown yet. The stores and the loader must outlive it.
    /// Throws std::runtime_error when the QML does not load.
    DeskWindows(const DeskStores& stores, PictureLoader& pictures);
    ~DeskWindows() override;

    /// The window that the user was in last, unless it was closed.
    WindowModel& model();
    DeskWindow& window();
    WindowModel& first() { return *entries_.front().model; }

    /// The first window, and those that were open when the desk ended.
    void show();
    /// Opens that place in one window more, on another screen where there is one.
    void openAnother(const QString& place);
    void raise(const QString& activationToken) { window().raise(activationToken); }
    bool isVisible() const;
    /// The desk goes on without windows in sight, of which the first can come back.
    void hide();
    /// Asked when the user closes the last window in sight: false keeps it.
    void setCloseRule(std::function<bool()> mayClose) { mayClose_ = std::move(mayClose); }

signals:
    /// To be opened in the browser.
    void linkWanted(const QString& link);
    void libraryWorkWanted(const app::LibraryWork& work);
    void visibilityChanged();
    /// A sheet in that window asks for a file.
    void fileWanted(app::WindowModel* model, const app::FileWish& wish);
    /// The story in the reader of the window in front is to be printed.
    void printWanted();

private:
    struct Entry {
        int number;  ///< 1 for the first
        std::unique_ptr<WindowModel> model;
        std::unique_ptr<DeskWindow> window;
        bool isClosed = false;
    };

    Entry& add(int number);
    Entry& inFront();
    bool mayClose(int number);
    void forget(int number);
    void remember();

    DeskStores stores_;
    PictureLoader& pictures_;
    std::vector<Entry> entries_;
    int front_ = 1;
    std::function<bool()> mayClose_;
};

}  // namespace app
