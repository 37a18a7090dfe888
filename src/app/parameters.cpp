#include "app/parameters.h"

#include "core/format/text_lists.h"

#include <utility>

namespace corvane {

std::vector<std::string> GetParameters(std::string_view commandLine) {
    std::vector<std::string> parameters;
    std::string token;
    bool inQuote = false, slashSeen = false;
    for (const char c : commandLine)
        if (c == '/')
            slashSeen = true;
        else if (c == '"')
            inQuote = !inQuote;
        else if (c == ' ' && !inQuote && slashSeen && !token.empty())
            parameters.push_back(std::exchange(token, {}));
        else
            token += c;
    if (!token.empty())
        parameters.push_back(std::move(token));
    return parameters;
}

SwitchLine ReadSwitches(std::string_view commandLine) {
    SwitchLine line;
    for (const std::string& parameter : GetParameters(commandLine)) {
        std::string rest = parameter.substr(1);
        switch (UpperCase(parameter.substr(0, 1)).front()) {
        case 'F':
            line.file = std::move(rest);
            break;
        case 'L':
            line.folder = std::move(rest);
            break;
        case 'C':
            line.compareFile = std::move(rest);
            break;
        case 'G':
            line.plots = true;
            break;
        case 'R':
            line.residuals = true;
            break;
        case 'P':
            line.print = true;
            break;
        case 'S':
            line.save = true;
            break;
        case 'O':
            line.show = true;
            break;
        case 'X':
            line.quit = true;
            break;
        case 'Y':
            line.stayHidden = true;
            break;
        default:
            break;
        }
    }
    return line;
}

} // namespace corvane
