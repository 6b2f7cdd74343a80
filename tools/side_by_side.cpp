#include "side_by_side.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <system_error>

namespace {

// Memory that the processes share. Pieces are taken in turn by whoever is free, so none waits for another.
class Shared {
  public:
    Shared(std::size_t count, std::size_t size) : size_(size), bytes_(kHead + count * size) {
        memory_ = mmap(nullptr, bytes_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory_ == MAP_FAILED) throw std::bad_alloc();
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;
    ~Shared() { munmap(memory_, bytes_); }

    std::atomic<std::size_t>& Next() { return *static_cast<std::atomic<std::size_t>*>(memory_); }
    std::byte* Result(std::size_t i) { return static_cast<std::byte*>(memory_) + kHead + i * size_; }

  private:
    static constexpr std::size_t kHead = 64;  // keeps the results aligned

    std::size_t size_;
    std::size_t bytes_;
    void* memory_;
};

// Says which pieces are finished, for as long as a process holds its writing end.
struct Pipe {
    Pipe() {
        if (pipe(ends) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
    }
    int ends[2] = {};
};

using Work = std::function<void(std::size_t, void*)>;
using InOrder = std::function<void(std::size_t, const void*)>;

[[noreturn]] void DoWhatIsLeft(Shared& shared, std::size_t count, const Pipe& finished, const Work& work) {
    close(finished.ends[0]);
    for (std::size_t i = shared.Next()++; i < count; i = shared.Next()++) {
        work(i, shared.Result(i));
        if (write(finished.ends[1], &i, sizeof i) != sizeof i) break;  // nobody waits for it any more
    }
    _exit(0);
}

// Hands the results on in their order while they come in. Returns when no process is left.
void HandOn(Shared& shared, std::size_t count, const Pipe& finished, const InOrder& inOrder) {
    std::vector<bool> there(count);
    std::size_t next = 0, i = 0;
    while (read(finished.ends[0], &i, sizeof i) == sizeof i) {
        there[i] = true;
        for (; next < count && there[next]; ++next) inOrder(next, shared.Result(next));
    }
    for (; next < count; ++next) inOrder(next, shared.Result(next));
}

}  // namespace

void ShareOut(void* results, std::size_t size, std::size_t count, int jobs, const Work& work, const InOrder& inOrder) {
    auto* here = static_cast<std::byte*>(results);
    jobs = static_cast<int>(std::min(count, static_cast<std::size_t>(jobs)));
    for (std::size_t i = 0; jobs <= 1 && i < count; ++i) {
        work(i, here + i * size);
        inOrder(i, here + i * size);
    }
    if (jobs <= 1) return;
    Shared shared(count, size);
    std::memcpy(shared.Result(0), here, count * size);
    const Pipe finished;
    std::fflush(nullptr);  // or each process writes what is waiting
    for (int job = 0; job < jobs; ++job) {
        if (fork() == 0) DoWhatIsLeft(shared, count, finished, work);
    }
    close(finished.ends[1]);
    HandOn(shared, count, finished, inOrder);
    close(finished.ends[0]);
    while (wait(nullptr) > 0) {
    }
}
