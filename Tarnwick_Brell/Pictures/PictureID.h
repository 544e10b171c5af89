#pragma once

#include <string>
#include <string_view>

#include <QString>

namespace app {

/// How the window asks for the picture that a story or an app names: the address in letters that
/// stay as they are in other addresses. Empty when there is no picture that may be fetched.
QString pictureID(std::string_view named);

/// The address that such a text stands for.
std::string pictureAddressOf(const QString& id);

}  // namespace app
