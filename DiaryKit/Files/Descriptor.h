// What the layer's sources share around file descriptors. Not for use outside DiaryKit/Files.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace diary {

// Owns a file descriptor; a negative one stands for none.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { (void)close(); }

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

    // Closes it now and gives the errno value of that, 0 if all went well. Linux frees the number
    // even if a signal interrupts the call, so an interrupted one isn't repeated.
    int close() {
        const int number = std::exchange(m_number, -1);
        if (number < 0 || ::close(number) == 0 || errno == EINTR) return 0;
        return errno;
    }

private:
    int m_number = -1;
};

// The result of a system call that is repeated while signals interrupt it.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

}  // namespace diary
