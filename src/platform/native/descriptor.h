#pragma once

#include <unistd.h>
#include <utility>

namespace corvane {

/// An open file of the system that closes itself.
class Descriptor {
public:
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool Valid() const { return number >= 0; }
    int Get() const { return number; }
    void Take(int opened) {
        Close();
        number = opened;
    }
    int Release() { return std::exchange(number, -1); }
    bool Close() { return number < 0 || ::close(std::exchange(number, -1)) == 0; }

private:
    int number;
};

} // namespace corvane
