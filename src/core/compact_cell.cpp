#include "core/compact_cell.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace corvane {
CompactCell::CompactCell(const CellView& value) {
    if (const double* stored = std::get_if<double>(&value)) {
        std::memcpy(bytes, stored, sizeof *stored);
        kind = number;
        return;
    }
    const std::string_view text = std::holds_alternative<std::string_view>(value)
                                      ? std::get<std::string_view>(value)
                                      : std::string_view();
    if (text.size() <= longestInside) {
        std::copy(text.begin(), text.end(), bytes);
        kind = static_cast<std::uint8_t>(text.size());
        return;
    }
    if (text.size() > UINT32_MAX)
        throw std::length_error("the text of a cell is longer than 4 GB");
    // The pointer to an own copy, and after it the length.
    char* const copy = new char[text.size()];
    const auto length = static_cast<std::uint32_t>(text.size());
    std::copy(text.begin(), text.end(), copy);
    std::memcpy(bytes, &copy, sizeof copy);
    std::memcpy(bytes + sizeof copy, &length, sizeof length);
    kind = outside;
}

CompactCell::CompactCell(CompactCell&& other) noexcept : kind(std::exchange(other.kind, std::uint8_t{0})) {
    std::memcpy(bytes, other.bytes, sizeof bytes);
}

CompactCell& CompactCell::operator=(CompactCell other) noexcept {
    std::swap(bytes, other.bytes);
    std::swap(kind, other.kind);
    return *this;
}

CompactCell::~CompactCell() {
    if (kind == outside)
        delete[] Load<char*>();
}

} // namespace corvane
