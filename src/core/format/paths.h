#pragma once

#include <string>
#include <string_view>

namespace corvane {

// These routines take "\" for a separator everywhere, and beside it the platform's own: paths in dataset
// files and on the command line may have been written on another system.

bool IsPathSeparator(char character);

/// True for a path at which something other than a folder is found. False for an empty path, a path with a
/// NUL and on every error.
bool FileExists(const std::string& path);

/// The text after the last separator; "" for a path without a separator.
std::string FileNameOf(std::string_view path);

/// The text up to and with the last separator. A path without a separator is taken for a folder's name: the
/// whole path, also an empty one, and the platform's separator.
std::string FolderOf(std::string_view path);

/// The path with the platform's own separator in place of "\\".
std::string NativePath(std::string_view path);

} // namespace corvane
