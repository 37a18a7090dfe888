#include "app/save_file.h"

#include "core/format/code_page.h"
#include "files/csv_writer.h"
#include "files/dataset_writer.h"

namespace corvane {

FileResult SaveBytes(const std::string& path, const std::string& bytes, Existing existing, FileStore& files) {
    FileResult saved = existing == Existing::Replace ? files.Replace(path, bytes) : files.Create(path, bytes);
    if (!saved.done)
        saved.reason = path + ": " + saved.reason;
    return saved;
}

FileResult SaveDataset(const std::string& path, const Dataset& dataset, Existing existing, FileStore& files) {
    return SaveBytes(path, EncodeText(DatasetFileText(dataset)), existing, files);
}

FileResult ExportTable(const std::string& path, const Dataset& dataset, Existing existing, FileStore& files) {
    return SaveBytes(path, CsvText(dataset.cells), existing, files);
}

} // namespace corvane
