#include "Tarnwick_Brell/Window/DeskWindows.h"

#include <algorithm>
#include <set>

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace {

constexpr std::string_view kMemory = "windows";
constexpr const char* kOpen = "open";
constexpr int kFirst = 1;
/// How far a window is from the one that it was opened from, on the same screen.
constexpr QPoint kBeside{32, 32};

/// The numbers of the windows beside the first. What makes no sense counts as absent.
std::set<int> rememberedNumbers(const Defaults& defaults) {
    std::set<int> numbers;
    const auto memory = defaults.memory(kMemory).value_or(Defaults::Memory());
    const auto entry = memory.find(kOpen);
    if (entry == memory.end()) return numbers;
    for (const auto& text : QString::fromStdString(entry->second).split(u',')) {
        const int number = text.toInt();
        if (number > kFirst && number <= DeskWindows::kMost) numbers.insert(number);
    }
    return numbers;
}

QScreen* otherScreen(const QScreen* screen) {
    for (auto* each : QGuiApplication::screens())
        if (each != screen) return each;
    return nullptr;
}

}  // namespace

DeskWindows::DeskWindows(const DeskStores& stores, PictureLoader& pictures)
    : stores_(stores), pictures_(pictures) {
    auto& first = add(kFirst);
    first.model->open(first.model->state()->place());
}

DeskWindows::~DeskWindows() {
    // A window that ends with the desk is not closed by the user.
    for (auto& entry : entries_) entry.window->window().disconnect(this);
    for (auto& entry : entries_) entry.window.reset();
}

DeskWindows::Entry& DeskWindows::add(int number) {
    Entry entry{.number = number,
                .model = std::make_unique<WindowModel>(stores_, number),
                .window = nullptr};
    entry.window = std::make_unique<DeskWindow>(*entry.model, pictures_);
    auto& window = entry.window->window();
    connect(entry.model.get(), &WindowModel::linkWanted, this, &DeskWindows::linkWanted);
    connect(entry.model.get(), &WindowModel::libraryWorkWanted, this,
            &DeskWindows::libraryWorkWanted);
    connect(
        entry.model.get(), &WindowModel::fileWanted, this,
        [this, model = entry.model.get()](const FileWish& wish) { emit fileWanted(model, wish); });
    connect(entry.model.get(), &WindowModel::windowWanted, this, &DeskWindows::openAnother);
    connect(entry.model.get(), &WindowModel::printWanted, this, &DeskWindows::printWanted);
    connect(&window, &QWindow::activeChanged, this, [this, number, &window] {
        if (window.isActive()) front_ = number;
    });
    connect(&window, &QWindow::visibilityChanged, this, [this, number](QWindow::Visibility now) {
        emit visibilityChanged();
        if (now == QWindow::Hidden && number != kFirst) forget(number);
    });
    entry.window->setCloseRule([this, number] { return mayClose(number); });
    entries_.push_back(std::move(entry));
    return entries_.back();
}

DeskWindows::Entry& DeskWindows::inFront() {
    const auto isShown = [](const Entry& entry) { return entry.window->window().isVisible(); };
    auto found = std::ranges::find(entries_, front_, &Entry::number);
    if (found == entries_.end() || !isShown(*found))
        found = std::ranges::find_if(entries_, isShown);
    return found == entries_.end() ? entries_.front() : *found;
}

WindowModel& DeskWindows::model() { return *inFront().model; }

DeskWindow& DeskWindows::window() { return *inFront().window; }

void DeskWindows::show() {
    for (const int number : rememberedNumbers(stores_.defaults)) {
        auto& entry = add(number);
        entry.model->open(entry.model->state()->place());
        entry.window->show();
    }
    // The last to be shown gets the focus.
    entries_.front().window->show();
    front_ = kFirst;
}

void DeskWindows::openAnother(const QString& place) {
    int number = kFirst;
    while (std::ranges::find(entries_, number, &Entry::number) != entries_.end()) ++number;
    if (number > kMost) {
        emit model().noticed(tr("%n windows are open, which is the most.", nullptr, kMost));
        return;
    }
    auto& from = window().window();
    const auto frame = from.geometry();
    const auto* screen = from.screen();
    auto& entry = add(number);
    entry.model->open(place);
    if (auto* other = otherScreen(screen)) {
        const auto free = other->availableGeometry();
        const auto size = frame.size().boundedTo(free.size());
        entry.window->window().setGeometry(QRect(free.topLeft(), size));
    } else {
        entry.window->window().setGeometry(frame.translated(kBeside));
    }
    entry.window->show();
    entry.window->raise({});
    front_ = number;
    remember();
}

bool DeskWindows::isVisible() const {
    return std::ranges::any_of(entries_, [](const Entry& entry) {
        const auto visibility = entry.window->window().visibility();
        return visibility != QWindow::Hidden && visibility != QWindow::Minimized;
    });
}

void DeskWindows::hide() {
    for (auto& entry : entries_) {
        entry.model->state()->save();
        entry.window->window().hide();
    }
}

bool DeskWindows::mayClose(int number) {
    const bool isLast = std::ranges::none_of(entries_, [&](const Entry& entry) {
        return entry.number != number && entry.window->window().isVisible();
    });
    return !isLast || !mayClose_ || mayClose_();
}

/// A window that the user has closed does not come back at the next start. It ends after the event
/// that closed it.
void DeskWindows::forget(int number) {
    const auto closed = std::ranges::find(entries_, number, &Entry::number);
    if (closed == entries_.end() || closed->window->isQuitting()) return;
    closed->isClosed = true;
    remember();
    QTimer::singleShot(0, this, [this, number] {
        const auto found = std::ranges::find(entries_, number, &Entry::number);
        if (found == entries_.end()) return;
        found->window.reset();
        entries_.erase(found);
        emit visibilityChanged();
    });
}

void DeskWindows::remember() {
    QStringList numbers;
    for (const auto& entry : entries_)
        if (entry.number != kFirst && !entry.isClosed) numbers << QString::number(entry.number);
    try {
        stores_.defaults.remember(kMemory, {{kOpen, numbers.join(u',').toStdString()}});
    } catch (const StoreError& error) {
        emit model().noticed(QString::fromUtf8(error.what()));
    }
}

}  // namespace app
