#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <random>
#include <span>

#include "stats/cancellation.h"

/// Sorting and selecting that look at a stop token. Long ranges are split by quicksort's partition until a
/// part holds no more than ElementsBetweenLooks, which the standard library then puts in order. A stop leaves
/// the values of the range in some order.
namespace corvane::stats {

/// Moves the values that `belong` to the front and returns how many they are. Without a branch that depends
/// on a value, since none of these could be predicted.
template<class Value, class Belongs>
std::size_t MoveToFront(std::span<Value> values, Belongs belongs, const std::stop_token& stop) {
    std::size_t front = 0;
    for (std::size_t first = 0; first < values.size(); first += ElementsBetweenLooks) {
        ThrowIfCancelled(stop);
        const std::size_t end = std::min(values.size(), first + ElementsBetweenLooks);
        for (std::size_t i = first; i < end; ++i) {
            const Value value = values[i];
            values[i] = values[front];
            values[front] = value;
            front += belongs(value) ? 1 : 0;
        }
    }
    return front;
}

/// Splits long ranges in two, at values that a random sample of each puts there; the sequence is a fixed one.
template<class Value, class Less>
class Splitter {
public:
    Splitter(Less order, const std::stop_token& token) : less(order), stop(token) {}

    struct Parts {
        std::size_t Front; ///< how many come before all others; neither 0 nor, unless they are equal, all
        bool Equal;        ///< the front is of one value
    };

    /// `share` of the range, 0 to 1, is about what comes to the front.
    Parts Split(std::span<Value> values, double share) {
        std::array<Value, 255> sample;
        for (Value& value : sample)
            value = values[random() % values.size()];
        const auto rank = std::clamp(static_cast<int>(share * static_cast<double>(sample.size())), 0,
                                     static_cast<int>(sample.size()) - 1);
        std::nth_element(sample.begin(), sample.begin() + rank, sample.end(), less);
        const Value pivot = sample[static_cast<std::size_t>(rank)];
        const std::size_t front = MoveToFront(
            values, [&](const Value& value) { return less(value, pivot); }, stop);
        if (front > 0)
            return {front, false};
        return {MoveToFront(
                    values, [&](const Value& value) { return !less(pivot, value); }, stop),
                true};
    }

    bool IsSorted(std::span<const Value> values) const {
        for (std::size_t i : Indices(values.size(), stop))
            if (i > 0 && less(values[i], values[i - 1]))
                return false;
        return true;
    }

    void Sort(std::span<Value> values) {
        while (!IsSorted(values)) {
            if (values.size() <= ElementsBetweenLooks)
                return std::sort(values.begin(), values.end(), less);
            const Parts parts = Split(values, 0.5);
            if (!parts.Equal)
                Sort(values.first(parts.Front));
            values = values.subspan(parts.Front);
        }
    }

    void Select(std::span<Value> values, std::size_t rank) {
        // Next to the rank, on the side that has more: what is left after both sides holds but a few per
        // cent.
        constexpr double margin = 0.06;
        while (values.size() > ElementsBetweenLooks) {
            const double share = static_cast<double>(rank) / static_cast<double>(values.size());
            const Parts parts = Split(values, share < 0.5 ? share + margin : share - margin);
            if (rank >= parts.Front) {
                values = values.subspan(parts.Front);
                rank -= parts.Front;
            } else if (parts.Equal) {
                return;
            } else {
                values = values.first(parts.Front);
            }
        }
        ThrowIfCancelled(stop);
        if (rank < values.size())
            std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(rank), values.end(),
                             less);
    }

private:
    Less less;
    const std::stop_token& stop;
    std::minstd_rand random;
};

/// Puts the range in ascending order, equal values in any; at the price of one pass where it is in order
/// already. `less` orders strictly and weakly.
template<class Value, class Less>
void Sort(std::span<Value> values, const std::stop_token& stop, Less less) {
    Splitter<Value, Less>(less, stop).Sort(values);
}

inline void Sort(std::span<double> values, const std::stop_token& stop) {
    Sort(values, stop, std::less<>());
}

/// Puts the value there that has this rank, counted from 0, none that is greater before it and none that is
/// smaller after it. A rank beyond the range changes nothing.
inline void Select(std::span<double> values, std::size_t rank, const std::stop_token& stop) {
    Splitter<double, std::less<>>(std::less<>(), stop).Select(values, rank);
}

} // namespace corvane::stats
