#pragma once

#include "platform/file_store.h"

#include <functional>
#include <string>
#include <vector>

namespace corvane {

using Pieces = std::vector<std::string>;

/// Does work in a copy of this process, which a library may then abort or which may run out of memory or
/// descriptors without harm to this one. `work` fills `pieces`, which come back, or tells why it cannot. What
/// it writes on standard error is not shown; where it ends without a word of its own, the first line of that
/// is part of the reason. No other thread may run.
FileResult DoInChild(const std::function<FileResult(Pieces&)>& work, Pieces& pieces);

} // namespace corvane
