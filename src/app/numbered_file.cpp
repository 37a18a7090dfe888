#include "app/numbered_file.h"

#include "core/format/format_picture.h"
#include "core/format/paths.h"

namespace corvane {

FileResult CreateNumbered(std::string_view folder, std::string_view stem, int first, const std::string& text,
                          FileStore& files, std::string& path) {
    while (!folder.empty() && IsPathSeparator(folder.back()))
        folder.remove_suffix(1);
    const std::string beginning = std::string(folder) + "/" + std::string(stem);
    for (double number = first;; ++number) {
        path = beginning + FormatPicture(number, "0000").value_or("") + ".TXT";
        if (FileExists(path))
            continue;
        // Another program may have taken the name by now.
        if (FileResult created = files.Create(path, text); !created.taken)
            return created;
    }
}

} // namespace corvane
