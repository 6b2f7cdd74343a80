// An open file of the POSIX hosts, closed on every way out.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

class Descriptor {
  public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~Descriptor() {
        if (fd_ >= 0) close(fd_);
    }
    int Get() const { return fd_; }

  private:
    int fd_;
};

// Why the last call of the system failed.
inline std::string SystemReason() {
    return std::strerror(errno);
}
