#pragma once

#include <cstddef>
#include <span>
#include <stop_token>

namespace corvane::stats {

/// Thrown by a long routine that was asked to stop. Nothing that a routine was given is changed by then.
struct Cancelled {};

/// How many elements a long routine handles at most between two looks at its stop token.
inline constexpr std::size_t ElementsBetweenLooks = std::size_t{1} << 16;

/// Inline: a call would take a loop's sums out of their registers.
inline void ThrowIfCancelled(const std::stop_token& stop) {
    if (stop.stop_requested())
        throw Cancelled{};
}

/// The indices from 0 to count - 1 of a long loop, with a look at the token, which outlives it, before the
/// first of them and after each ElementsBetweenLooks: for (std::size_t i : Indices(n, stop)).
class Indices {
public:
    Indices(std::size_t loopCount, const std::stop_token& token) : count(loopCount), stop(token) {}

    class Iterator {
    public:
        Iterator(std::size_t index, const std::stop_token& token) : at(index), stop(&token) {}
        std::size_t operator*() const { return at; }
        Iterator& operator++() {
            if (++at % ElementsBetweenLooks == 0)
                ThrowIfCancelled(*stop);
            return *this;
        }
        bool operator==(const Iterator& other) const { return at == other.at; }

    private:
        std::size_t at;
        const std::stop_token* stop;
    };

    Iterator begin() const {
        ThrowIfCancelled(stop);
        return {0, stop};
    }
    Iterator end() const { return {count, stop}; }

private:
    std::size_t count;
    const std::stop_token& stop;
};

/// The elements of a long loop, with the same looks: for (double value : Elements(sample, stop)).
template<class Element>
class ElementsOf {
public:
    ElementsOf(std::span<Element> loopElements, const std::stop_token& stop)
        : elements(loopElements), indices(loopElements.size(), stop) {}

    class Iterator {
    public:
        Iterator(Element* first, Indices::Iterator index) : data(first), at(index) {}
        Element& operator*() const { return data[*at]; }
        Iterator& operator++() {
            ++at;
            return *this;
        }
        bool operator==(const Iterator& other) const { return at == other.at; }

    private:
        Element* data;
        Indices::Iterator at;
    };

    Iterator begin() const { return {elements.data(), indices.begin()}; }
    Iterator end() const { return {elements.data(), indices.end()}; }

private:
    std::span<Element> elements;
    Indices indices;
};

/// Of a container or span of contiguous elements that outlives the loop.
template<class Range>
auto Elements(Range& range, const std::stop_token& stop) {
    return ElementsOf(std::span(range), stop);
}

/// The looks of work that is no loop over indices: it says how many elements it has handled.
class Looks {
public:
    /// The token outlives the object.
    explicit Looks(const std::stop_token& token) : stop(token) { ThrowIfCancelled(stop); }

    void Handled(std::size_t elements) {
        handled += elements;
        if (handled < ElementsBetweenLooks)
            return;
        handled = 0;
        ThrowIfCancelled(stop);
    }

private:
    const std::stop_token& stop;
    std::size_t handled = 0;
};

} // namespace corvane::stats
