#include "platform/native/settings_file.h"

#include <filesystem>
#include <optional>
#include <sstream>
#include <system_error>

namespace corvane {
namespace {

constexpr const char* lastLine = "; end of settings";

/// The sections of a whole file; nothing where a line is none of ours or the last one is missing.
std::optional<std::map<std::string, Settings::Values>> Parse(const std::string& text) {
    std::map<std::string, Settings::Values> sections;
    std::istringstream lines(text);
    std::string line, section;
    while (std::getline(lines, line)) {
        if (line.ends_with('\r'))
            line.pop_back();
        if (line == lastLine)
            return sections;
        if (line.empty() || line.front() == ';' || line.front() == '#')
            continue;
        const std::size_t equals = line.find('=');
        if (line.size() > 2 && line.front() == '[' && line.back() == ']')
            section = line.substr(1, line.size() - 2);
        else if (!section.empty() && equals != std::string::npos && equals > 0)
            sections[section][line.substr(0, equals)] = line.substr(equals + 1);
        else
            return std::nullopt;
    }
    return std::nullopt;
}

/// Renames a file out of the way under the first free name.
std::error_code KeepAside(const std::string& path) {
    std::error_code error;
    std::string aside = path + ".broken";
    for (int number = 2; std::filesystem::exists(aside, error); ++number)
        aside = path + ".broken" + std::to_string(number);
    std::filesystem::rename(path, aside, error);
    return error;
}

} // namespace

std::optional<SettingsFile::Sections> SettingsFile::ReadAll(const std::string& path, std::string& fault) {
    const auto leaveAlone = [&](const std::string& reason) {
        fault = path + ": the settings cannot be read and are left as they are: " + reason;
        return std::nullopt;
    };
    std::error_code error;
    const auto type = std::filesystem::status(path, error).type();
    if (type == std::filesystem::file_type::not_found)
        return Sections();
    if (error)
        return leaveAlone(error.message());
    if (type == std::filesystem::file_type::fifo) // reading one would wait for a writer
        return leaveAlone("this is a pipe, not a file");
    std::string text;
    if (const FileResult read = files.Read(path, text); !read.done)
        return leaveAlone(read.reason);
    if (auto sections = Parse(text))
        return sections;
    if (const std::error_code kept = KeepAside(path))
        return leaveAlone("they are broken, and cannot be renamed: " + kept.message());
    return Sections();
}

Settings::Values SettingsFile::Read(const std::string& application, const std::string& section,
                                    std::string& fault) {
    auto sections = ReadAll(folder + "/" + application + ".conf", fault);
    return sections ? (*sections)[section] : Values();
}

FileResult SettingsFile::Write(const std::string& application, const std::string& section,
                               const Values& values) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const std::string path = folder + "/" + application + ".conf";
    std::string text, fault;
    auto sections = ReadAll(path, fault);
    if (!sections)
        return {false, fault, false};
    for (const auto& [name, value] : values)
        (*sections)[section][name] = value;
    for (const auto& [title, entries] : *sections) {
        text += "[" + title + "]\n";
        for (const auto& [name, value] : entries)
            text.append(name).append("=").append(value).append("\n");
    }
    return files.Replace(path, text + lastLine + "\n");
}

} // namespace corvane
