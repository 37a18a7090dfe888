#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <variant>

namespace corvane {

/// What a cell holds, without a copy of its text: empty, text in UTF-8, or a number.
using CellView = std::variant<std::monostate, std::string_view, double>;

/// A cell in 16 bytes, so that a dataset of a million rows takes little more memory than its file: texts of
/// up to 15 bytes are in the cell itself.
class CompactCell {
public:
    CompactCell() = default;
    explicit CompactCell(const CellView& value);
    CompactCell(const CompactCell& other) : CompactCell(other.View()) {}
    CompactCell(CompactCell&& other) noexcept;
    CompactCell& operator=(CompactCell other) noexcept;
    ~CompactCell();

    bool Empty() const { return kind == 0; }
    /// Valid until the cell changes.
    CellView View() const {
        switch (kind) {
        case 0:
            return {};
        case number:
            return Load<double>();
        case outside:
            return std::string_view(Load<char*>(), Load<std::uint32_t>(sizeof(char*)));
        default:
            return std::string_view(bytes, kind);
        }
    }

private:
    static constexpr std::size_t longestInside = 15;
    static constexpr std::uint8_t number = 254,
                                  outside = 255; ///< Other kinds are the length of a text inside.

    template<class Value>
    Value Load(std::size_t at = 0) const {
        Value value;
        std::memcpy(&value, bytes + at, sizeof value);
        return value;
    }

    alignas(8) char bytes[longestInside] = {};
    std::uint8_t kind = 0;
};

static_assert(sizeof(CompactCell) == 16);

} // namespace corvane
