#include "Tarnwick_Brell/Models/Window/WindowState.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <QGuiApplication>
#include <QScreen>

#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Models/Window/WindowGeometry.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace {

using namespace std::chrono_literals;

// Dragging changes the window's place many times a second.
constexpr auto kSavingPause = 800ms;
// No screen is larger, and sums of such numbers don't overflow.
constexpr int kFarthest = 100'000;
constexpr int kLeastSide = 100;
constexpr QChar kBetweenKeys = u'\n';

QString textOf(const Defaults::Memory& memory, const char* key) {
    const auto entry = memory.find(key);
    return entry == memory.end() ? QString() : QString::fromStdString(entry->second);
}

std::optional<int> numberOf(const Defaults::Memory& memory, const char* key, int least, int most) {
    bool isNumber = false;
    const int number = textOf(memory, key).toInt(&isNumber);
    return isNumber && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

std::optional<QRect> frameOf(const Defaults::Memory& memory) {
    const auto x = numberOf(memory, "x", -kFarthest, kFarthest);
    const auto y = numberOf(memory, "y", -kFarthest, kFarthest);
    const auto width = numberOf(memory, "width", kLeastSide, kFarthest);
    const auto height = numberOf(memory, "height", kLeastSide, kFarthest);
    if (!x || !y || !width || !height) return std::nullopt;
    return QRect(*x, *y, *width, *height);
}

/// "window" for the first one.
std::string memoryOf(int number) {
    return number == 1 ? "window" : "window-" + std::to_string(number);
}

/// The main screen first.
QList<QRect> screens() {
    QList<QRect> rects;
    for (const auto* screen : QGuiApplication::screens()) rects << screen->availableGeometry();
    return rects;
}

}  // namespace

WindowState::WindowState(Defaults& defaults, int number)
    : defaults_(defaults),
      memory_(memoryOf(number)),
      now_(read(defaults.memory(memory_).value_or(Defaults::Memory()))),
      kept_(now_),
      reader_(static_cast<Reader>(defaults.choice(SettingKey::kReaderPlace))) {
    saving_.setSingleShot(true);
    saving_.setInterval(kSavingPause);
    connect(&saving_, &QTimer::timeout, this, &WindowState::save);
    connect(&defaults_, &Defaults::changed, this, &WindowState::readReader);
}

WindowState::~WindowState() {
    now_.story.clear();
    now_.topStory.clear();
    save();
}

WindowState::State WindowState::read(const Defaults::Memory& memory) {
    State state{.frame = frameOf(memory),
                .isMaximised = textOf(memory, "maximised") == u"true",
                .sidebarShown = textOf(memory, "sidebarShown") != u"false",
                .place = textOf(memory, "place"),
                .collapsedGroups =
                    textOf(memory, "collapsedGroups").split(kBetweenKeys, Qt::SkipEmptyParts),
                .clusteredPlaces =
                    textOf(memory, "clusteredPlaces").split(kBetweenKeys, Qt::SkipEmptyParts),
                .unclusteredPlaces =
                    textOf(memory, "unclusteredPlaces").split(kBetweenKeys, Qt::SkipEmptyParts),
                .story = textOf(memory, "story"),
                .topStory = textOf(memory, "topStory")};
    state.sidebarWidth =
        numberOf(memory, "sidebarWidth", kLeastSidebar, kMostSidebar).value_or(kSidebar);
    state.listWidth = numberOf(memory, "listWidth", kLeastList, kMostList).value_or(kList);
    return state;
}

Defaults::Memory WindowState::written(const State& state) {
    Defaults::Memory memory{
        {"maximised", state.isMaximised ? "true" : "false"},
        {"sidebarWidth", std::to_string(state.sidebarWidth)},
        {"sidebarShown", state.sidebarShown ? "true" : "false"},
        {"listWidth", std::to_string(state.listWidth)},
        {"place", state.place.toStdString()},
        {"collapsedGroups", state.collapsedGroups.join(kBetweenKeys).toStdString()},
        {"clusteredPlaces", state.clusteredPlaces.join(kBetweenKeys).toStdString()},
        {"unclusteredPlaces", state.unclusteredPlaces.join(kBetweenKeys).toStdString()},
        {"story", state.story.toStdString()},
        {"topStory", state.topStory.toStdString()}};
    if (state.frame) {
        memory["x"] = std::to_string(state.frame->x());
        memory["y"] = std::to_string(state.frame->y());
        memory["width"] = std::to_string(state.frame->width());
        memory["height"] = std::to_string(state.frame->height());
    }
    return memory;
}

void WindowState::attach(QWindow* window) {
    window_ = window;
    if (now_.frame) {
        window->setGeometry(placeOnScreens(*now_.frame, window->minimumSize(), screens()));
    }
    if (now_.isMaximised) window->setWindowStates(Qt::WindowMaximized);
    for (const auto signal : {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged,
                              &QWindow::heightChanged}) {
        connect(window, signal, &saving_, qOverload<>(&QTimer::start));
    }
    connect(window, &QWindow::windowStateChanged, &saving_, qOverload<>(&QTimer::start));
    // The screen is still in the list while the signal is given.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &WindowState::returnToScreens,
            Qt::QueuedConnection);
}

/// A window whose screen was unplugged comes back into sight.
void WindowState::returnToScreens() {
    if (!window_ || window_->windowState() != Qt::WindowNoState) return;
    const auto place = placeOnScreens(window_->geometry(), window_->minimumSize(), screens());
    if (place != window_->geometry()) window_->setGeometry(place);
}

/// Only before saving: while a window is being maximised, it is large for a moment before it
/// is told that it is maximised.
void WindowState::updateFrame() {
    if (!window_ || !window_->isVisible()) return;
    const auto shown = window_->windowState();
    if (shown == Qt::WindowMinimized) return;
    now_.isMaximised = shown == Qt::WindowMaximized;
    if (shown == Qt::WindowNoState) now_.frame = window_->geometry();
}

void WindowState::setSidebarWidth(int width) {
    auto state = now_;
    state.sidebarWidth = std::clamp(width, kLeastSidebar, kMostSidebar);
    setState(state);
}

void WindowState::setSidebarShown(bool shown) {
    auto state = now_;
    state.sidebarShown = shown;
    setState(state);
}

void WindowState::setListWidth(int width) {
    auto state = now_;
    state.listWidth = std::clamp(width, kLeastList, kMostList);
    setState(state);
}

void WindowState::setReader(Reader reader) {
    if (reader == reader_) return;
    const auto& key = *SettingKey::named(SettingKey::kReaderPlace);
    try {
        defaults_.set(key.name, key.choices[static_cast<std::size_t>(reader)]);
    } catch (const StoreError& error) {
        // It moves all the same, for this run.
        reader_ = reader;
        emit changed();
        fail(QString::fromUtf8(error.what()));
    }
}

void WindowState::readReader(const QString& key) {
    const auto reader = static_cast<Reader>(defaults_.choice(SettingKey::kReaderPlace));
    if (key != plainText(SettingKey::kReaderPlace) || reader == reader_) return;
    reader_ = reader;
    emit changed();
}

void WindowState::moveReader() {
    setReader(reader_ == Hidden ? Right : static_cast<Reader>(reader_ + 1));
}

void WindowState::setPlace(const QString& key) {
    auto state = now_;
    state.place = key;
    setState(state);
}

void WindowState::setStory(const QString& storyID) {
    auto state = now_;
    state.story = storyID;
    setState(state);
}

void WindowState::setTopStory(const QString& storyID) {
    auto state = now_;
    state.topStory = storyID;
    setState(state);
}

void WindowState::setCollapsed(const QString& group, bool collapsed) {
    auto state = now_;
    state.collapsedGroups.removeAll(group);
    if (collapsed) state.collapsedGroups << group;
    setState(state);
}

bool WindowState::isClustered(const QString& place) const {
    if (now_.clusteredPlaces.contains(place)) return true;
    return place == Destination{Destination::Kind::topStories, {}}.key() &&
           !now_.unclusteredPlaces.contains(place);
}

void WindowState::setClustered(const QString& place, bool clustered) {
    auto state = now_;
    state.clusteredPlaces.removeAll(place);
    state.unclusteredPlaces.removeAll(place);
    (clustered ? state.clusteredPlaces : state.unclusteredPlaces) << place;
    setState(state);
}

void WindowState::setState(const State& state) {
    if (state == now_) return;
    now_ = state;
    saving_.start();
    emit changed();
}

void WindowState::save() {
    saving_.stop();
    updateFrame();
    if (now_ == kept_) return;
    kept_ = now_;
    try {
        defaults_.remember(memory_, written(now_));
    } catch (const StoreError& error) {
        fail(QString::fromUtf8(error.what()));
    }
}

void WindowState::fail(const QString& sentence) {
    if (!std::exchange(hasFailed_, true)) emit failed(sentence);
}

}  // namespace app
