#pragma once

#include "core/dataset.h"
#include "platform/dialogs.h"
#include "platform/file_store.h"

#include <string>

namespace corvane {

/// The text of a dataset file, line ends CR LF: version line, an option a line in the table's order, "DATA:",
/// a line for every data row (text in double quotes, a double quote in it doubled, numbers plain) and the
/// notes, if any.
std::string DatasetFileText(const Dataset& dataset);

/// Asks once whether rows without X or Y shall be removed, if there are any, and replaces the file. It is
/// written in Windows-1252, or in UTF-8 where a character has no place there.
FileResult SaveFile(const std::string& path, Dataset& dataset, FileStore& files, Dialogs& dialogs);

} // namespace corvane
