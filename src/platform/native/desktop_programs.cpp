#include "platform/native/desktop_programs.h"

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
        if (::access((folder + "/" + program).c_str(), X_OK) == 0)
            return true;
    return false;
}

std::string ForShell(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
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
    const std::string file = " \"" + path + "\"";
    const bool desktop = !Variable("DISPLAY").empty() || !Variable("WAYLAND_DISPLAY").empty();
    if (desktop && InSearchPath("xdg-open"))
        return processes.RunAndWait("xdg-open" + file) == 0;
    if (!OnTerminal())
        return false;
    for (const std::string& editor : {Variable("VISUAL"), Variable("EDITOR"), std::string("editor")})
        if (!editor.empty())
            return processes.RunAndWait(editor + file).has_value();
    return false;
}

} // namespace corvane
