#pragma once

#include "core/analysis_options.h"

#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace corvane {

/// The value of one option, in the order of OptionForm.
using OptionValue = std::variant<std::int16_t, bool, std::string, float>;

/// How a value is kept and written: tick box (C), true/false (B), text (T), single-precision number (F).
enum class OptionForm { TickBox, TrueFalse, Text, Number };

/// `WrittenOnly`: the line is written into a file and never read back.
enum class Storage { InFile, WrittenOnly, NotInFile };

/// Option buttons of which at most one is set.
enum class OptionGroup { None, Method, HistogramLayout, HistogramStyle, GraphFormat };

/// A gate lets a report section or plot run.
enum class OptionRole { Setting, Gate };

/// One option: everything that the file, the command line, the window and the documentation need to know of
/// it.
struct OptionRow {
    using Member = std::variant<std::int16_t AnalysisOptions::*, bool AnalysisOptions::*,
                                std::string AnalysisOptions::*, float AnalysisOptions::*>;
    using Default = std::variant<std::int16_t, bool, std::string_view, float>;

    std::string_view key;
    Member member;
    Default byDefault;
    std::string_view control; ///< The control that carries it, as "Check21" or "Text1(8)".
    std::string_view caption; ///< "&&" shows as "&".
    Storage storage;
    OptionGroup group;
    OptionRole role;

    OptionForm Form() const { return static_cast<OptionForm>(member.index()); }
};

/// Every option, those of a dataset file first and in the file's order.
std::span<const OptionRow> OptionTable();

/// The option of a key in any case, or nothing.
const OptionRow* FindOption(std::string_view key);

/// The option that is kept in a member, as `OptionOf(&AnalysisOptions::DEVIATION_CI_PROB)`.
const OptionRow& OptionOf(OptionRow::Member member);

OptionValue GetOption(const AnalysisOptions& options, const OptionRow& row);

/// Puts a value of the row's form into its member and does nothing else.
void PutOption(AnalysisOptions& options, const OptionRow& row, const OptionValue& value);

/// The value that a text stands for in a row's form: a tick box takes what converts to 0, 1 or 2, a
/// true/false option "True", "False" or a number, a text one line. Nothing where the text does not convert.
std::optional<OptionValue> ReadOptionValue(const OptionRow& row, std::string_view text);

/// What a form takes, in words for the user.
std::string_view ValuesTaken(OptionForm form);

/// The value as a dataset file shows it: a number with one blank before it when it is not negative.
std::string OptionText(const OptionValue& value);

} // namespace corvane
