#pragma once

#include <optional>
#include <string>

namespace corvane {

/// The clipboard of the desktop.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// The text in it, UTF-8; nothing where it holds none.
    virtual std::optional<std::string> Text() const = 0;

    virtual void PutText(const std::string& text) = 0;

    /// A picture as the bytes of a PNG file.
    virtual void PutPicture(const std::string& png) = 0;
};

} // namespace corvane
