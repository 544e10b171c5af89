#pragma once

#include <filesystem>

#include "NewsroomKit/Records/Instant.h"

namespace app {

class AlertStore;
class Defaults;
class LibraryStore;
class NewsDesk;
class NewsroomStore;
class TrackerStore;
class UndoStack;

/// The stores that the window shows and changes. They outlive everything in the window.
struct DeskStores {
    NewsDesk& news;
    TrackerStore& trackers;
    NewsroomStore& newsrooms;
    AlertStore& alerts;
    LibraryStore& kept;
    Defaults& defaults;
    kit::Clock clock;
    UndoStack& undo;
    std::filesystem::path library{};  ///< the file that the stores write
};

}  // namespace app
