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
void KeepAside(const std::string& path) {
    std::error_code error;
    std::string aside = path + ".broken";
    for (int number = 2; std::filesystem::exists(aside, error); ++number)
        aside = path + ".broken" + std::to_string(number);
    std::filesystem::rename(path, aside, error);
}

} // namespace

SettingsFile::Sections SettingsFile::ReadAll(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        return {};
    std::string text;
    if (std::filesystem::is_regular_file(path, error) && files.Read(path, text).done)
        if (auto sections = Parse(text))
            return *sections;
    KeepAside(path);
    return {};
}

Settings::Values SettingsFile::Read(const std::string& application, const std::string& section) {
    return ReadAll(folder + "/" + application + ".conf")[section];
}

FileResult SettingsFile::Write(const std::string& application, const std::string& section,
                               const Values& values) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const std::string path = folder + "/" + application + ".conf";
    Sections sections = ReadAll(path);
    for (const auto& [name, value] : values)
        sections[section][name] = value;
    std::string text;
    for (const auto& [title, entries] : sections) {
        text += "[" + title + "]\n";
        for (const auto& [name, value] : entries)
            text.append(name).append("=").append(value).append("\n");
    }
    return files.Replace(path, text + lastLine + "\n");
}

} // namespace corvane
