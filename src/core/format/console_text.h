#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The text as a terminal may show it: what could steer the terminal is written out. That is the control
/// characters (C0 without those in `kept`, DEL, C1) and the marks that override the direction of writing
/// (U+202A to U+202E, U+2066 to U+2069), as "\n", "\t", "\r" or "\u001B", and bytes that are no UTF-8, as
/// "\xFF". In a JSON text these are the escapes of its strings.
std::string ForTerminal(std::string_view text, std::string_view kept = {});

/// The rows that a console of 80 columns would show of a program's output: longer lines wrap, blanks at a
/// row's ends are dropped, blank rows too, and each row that is left ends with CR LF. A carriage return alone
/// starts its row anew.
std::string ReadConsoleText(std::string_view output);

} // namespace corvane
