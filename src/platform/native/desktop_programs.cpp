#include "platform/native/desktop_programs.h"

#include "platform/native/native_processes.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane {
namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool InSearchPath(const std::string& program) {
    std::istringstream folders(Variable("PATH"));
    for (std::string folder; std::getline(folders, folder, ':');)
        if (::access(folder.append("/").append(program).c_str(), X_OK) == 0)
            return true;
    return false;
}

std::string ForShell(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'')
            quoted += "'\\'";
        quoted += c;
    }
    return quoted += '\'';
}

bool OnTerminal() {
    return ::isatty(STDIN_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 1;
}

} // namespace

FileResult SpoolPrinter::Print(const std::string& text, const std::string& title) {
    std::string command;
    if (InSearchPath("lp"))
        command = "lp -s -t " + ForShell(title);
    else if (InSearchPath("lpr"))
        command = "lpr -T " + ForShell(title);
    else
        return {false, "this system has no print spooler (lp or lpr)"};

    // A spooler that ends early must not end this program with it.
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    FILE* spooler = ::popen((command + " >/dev/null 2>&1").c_str(), "w");
    bool written = spooler != nullptr;
    if (spooler) {
        written = std::fwrite(text.data(), 1, text.size(), spooler) == text.size();
        const int status = ::pclose(spooler);
        written = written && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    std::signal(SIGPIPE, before);
    if (!written)
        return {false, "the print spooler did not take the text; is there a printer?"};
    return {true, {}};
}

bool UserTextEditor::Open(const std::string& path) {
    const auto openWith = [&](const std::string& command) {
        std::vector<std::string> words = CommandLineWords(command);
        if (words.empty())
            return false;
        words.push_back(path);
        return processes.RunAndWait(words).has_value();
    };
    const bool desktop = !Variable("DISPLAY").empty() || !Variable("WAYLAND_DISPLAY").empty();
    if (desktop && processes.RunAndWait(std::vector<std::string>{"xdg-open", path}) == 0)
        return true;
    return OnTerminal() &&
           (openWith(Variable("VISUAL")) || openWith(Variable("EDITOR")) || openWith("editor"));
}

} // namespace corvane
