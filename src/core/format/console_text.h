#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The rows that a console of 80 columns would show of a program's output: longer lines wrap, blanks at a
/// row's ends are dropped, blank rows too, and each row that is left ends with CR LF. A carriage return alone
/// starts its row anew.
std::string ReadConsoleText(std::string_view output);

} // namespace corvane
