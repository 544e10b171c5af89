#pragma once

#include <chrono>
#include <functional>

#include "Tarnwick_Brell/Models/Window/WindowModel.h"

/// What the pictures of the window are made of.
namespace pictures {

struct View {
    const char* name;
    std::function<void(app::WindowModel&)> open;
};

void runFor(std::chrono::milliseconds time);
/// Throws std::runtime_error after a minute.
void waitUntil(const char* what, const std::function<bool()>& holds);
/// Selects a story of several outlets, which shows the most.
void chooseStory(app::WindowModel& model, app::NewsDesk& news);

}  // namespace pictures
