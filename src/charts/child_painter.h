#pragma once

#include "plots/picture_painter.h"

#include <cstdint>
#include <optional>

namespace corvane {

/// Paints with Qt in a process of its own, since Qt ends the one in which it can go no further. No other
/// thread may run. A PDF file holds when it was made: now, or at `created`, in seconds since 1970-01-01
/// 00:00:00 UTC.
class ChildPainter : public PicturePainter {
public:
    explicit ChildPainter(std::optional<std::int64_t> creationTime = std::nullopt) : created(creationTime) {}

    std::string OutOfReach(const ChartModel& chart) const override;
    Pictures Paint(std::span<const ChartModel> charts, ChartFormat format, ChartSize size) override;

private:
    std::optional<std::int64_t> created;
};

} // namespace corvane
