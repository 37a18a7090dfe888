#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace corvane {

/// A step of a run that could not be done: a division by zero, a root of a negative number, a count too large
/// for its type, a field that cannot be formatted. A run skips the statement and goes on. Programming errors
/// are not run failures and are never swallowed.
class RunFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Runs one statement's worth of work. A RunFailure inside abandons the rest of the work and nothing else;
/// the result is then its reason. Work assigns its target last, so that a target keeps its old value.
template<class Work>
std::optional<std::string> Statement(Work&& work) {
    try {
        std::forward<Work>(work)();
        return std::nullopt;
    } catch (const RunFailure& failure) {
        return failure.what();
    }
}

/// The condition of a branch: one that fails enters the branch.
template<class Condition>
bool ConditionHolds(Condition&& condition) {
    try {
        return std::forward<Condition>(condition)();
    } catch (const RunFailure&) {
        return true;
    }
}

/// Checked arithmetic. Each throws RunFailure where the result would not be a finite number. An operand that
/// the statistics library saturated (the largest double, for what has no finite value) is no number to
/// compute with.
double Divide(double numerator, double denominator);
double SquareRoot(double radicand);
/// A part in per cent of the whole, also where the hundredfold part has no place in a double.
double Percent(double part, double whole);
double Logarithm(double argument);

/// The t of an estimate with its SD. An SD without a finite value leaves no evidence: 0. A RunFailure where
/// the estimate has none, and as in Divide.
double TStatistic(double estimate, double sd);

/// Conversion to a count, halves to even; a RunFailure where it does not fit.
std::int16_t Integer16(double value);
std::int32_t Integer32(double value);

} // namespace corvane
