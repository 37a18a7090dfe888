#pragma once

#include "core/dataset.h"
#include "platform/file_store.h"

#include <string>

namespace corvane {

/// Whether a file may be saved over another one, or under a free name only.
enum class Existing { Keep, Replace };

/// Saves bytes as one step. The reason of what was not done names the file; `taken` tells that the name is.
FileResult SaveBytes(const std::string& path, const std::string& bytes, Existing existing, FileStore& files);

/// Saves a dataset file, in Windows-1252, or in UTF-8 where a character has no place there.
FileResult SaveDataset(const std::string& path, const Dataset& dataset, Existing existing, FileStore& files);

/// Saves the cells of a dataset as a table in text form, without its options and notes.
FileResult ExportTable(const std::string& path, const Dataset& dataset, Existing existing, FileStore& files);

} // namespace corvane
