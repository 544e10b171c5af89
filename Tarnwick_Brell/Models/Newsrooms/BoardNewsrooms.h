#pragma once

#include <string>
#include <vector>

namespace app {

class Defaults;
class NewsroomStore;

/// The newsrooms that the board pages through, by their ids, in the sidebar's order: all but those
/// that the user has left out.
std::vector<std::string> boardNewsrooms(const NewsroomStore& newsrooms, const Defaults& defaults);

bool isOnBoard(const Defaults& defaults, const std::string& id);
/// Throws StoreError.
void setOnBoard(Defaults& defaults, const std::string& id, bool on);

}  // namespace app
