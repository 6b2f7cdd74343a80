#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

Progress::Progress(std::uint64_t steps, bool wanted) : steps_(std::max<std::uint64_t>(steps, 1)), shown_(wanted) {
    shown_ = shown_ && isatty(STDERR_FILENO) != 0;
}

void Progress::Step() {
    constexpr auto kBetween = std::chrono::milliseconds(100);
    ++done_;
    const auto now = Clock::now();
    if (!shown_ || now < next_) return;
    next_ = now + kBetween;
    Draw(std::chrono::duration<double>(now - start_).count());
}

void Progress::Draw(double seconds) const {
    constexpr std::uint64_t kWidth = 40;
    const auto full = static_cast<std::size_t>(std::min(kWidth, done_ * kWidth / steps_));
    const double left = seconds * static_cast<double>(steps_ - std::min(done_, steps_)) / static_cast<double>(done_);
    const std::string bar = std::string(full, '#') + std::string(kWidth - full, '.');
    std::fprintf(stderr, "\r[%s] %llu of %llu games, %.0f s left \033[K", bar.c_str(),
                 static_cast<unsigned long long>(done_), static_cast<unsigned long long>(steps_), left);
}

void Progress::Clear() const {
    if (shown_) std::fputs("\r\033[K", stderr);
}
