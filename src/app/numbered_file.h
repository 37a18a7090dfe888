#pragma once

#include "platform/file_store.h"

#include <string>
#include <string_view>

namespace corvane {

/// Writes a text into the first of folder/STEM0001.TXT, STEM0002.TXT ... (counted from `first`) that does not
/// exist yet, and leaves in `path` the path of that file, or of the one at which it failed. No two programs
/// get the same number.
FileResult CreateNumbered(std::string_view folder, std::string_view stem, int first, const std::string& text,
                          FileStore& files, std::string& path);

} // namespace corvane
