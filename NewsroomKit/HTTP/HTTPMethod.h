#pragma once

namespace kit {

enum class HTTPMethod { get, post, put, remove };

}  // namespace kit
