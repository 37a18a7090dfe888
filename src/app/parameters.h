#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Splits a switch line into its tokens, each a switch letter and what belongs to it. Every "/" is dropped,
/// inside quotes too; a double quote opens or closes a stretch in which blanks count, and is dropped; outside
/// one a blank ends a token once a "/" was seen. So text before the first "/" joins the first token, and
/// single quotes stay.
std::vector<std::string> GetParameters(std::string_view commandLine);

/// What a switch line asks for. The paths are the line's own, with "\" between folders.
struct SwitchLine {
    std::optional<std::string> file, folder, compareFile; ///< F, L and C, where they were given
    bool plots = false;                                   ///< G
    bool residuals = false;                               ///< R
    bool print = false;                                   ///< P
    bool save = false;                                    ///< S
    bool show = false;                                    ///< O
    bool quit = false;                                    ///< X
    bool stayHidden = false;                              ///< Y
};

/// Reads the tokens by their first letter, in any case; the last one of a letter holds, others are ignored.
SwitchLine ReadSwitches(std::string_view commandLine);

} // namespace corvane
