#pragma once

#include <functional>
#include <string_view>

namespace Score {

/// Takes a long text, or the bytes of a file, in pieces one after the other, so that nobody has to hold all
/// of it.
using TextSink = std::function<void(std::string_view piece)>;

} // namespace Score
