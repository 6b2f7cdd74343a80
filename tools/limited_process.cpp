#include "limited_process.h"

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace {

// Memory that parent and child share; behind it lies the result.
struct Shared {
    WorkPlace place;
    char fault[4096];  // longer ones are cut
};

class SharedMemory {
  public:
    explicit SharedMemory(std::size_t size)
        : size_(size), start_(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {}
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory() {
        if (Given()) munmap(start_, size_);
    }
    bool Given() const { return start_ != MAP_FAILED; }
    Shared& Head() const { return *static_cast<Shared*>(start_); }
    std::byte* Result() const { return static_cast<std::byte*>(start_) + sizeof(Shared); }

  private:
    std::size_t size_;
    void* start_;
};

rlim_t ProcessorSeconds() {
    rlimit limit{};
    getrlimit(RLIMIT_CPU, &limit);
    return std::min<rlim_t>(limit.rlim_cur, kProcessorSeconds);
}

void LimitProcess() {
    const rlimit time{ProcessorSeconds(), RLIM_INFINITY}, noCore{};
    setrlimit(RLIMIT_CPU, &time);
    setrlimit(RLIMIT_CORE, &noCore);
}

std::string WhyEnded(int status) {
    if (!WIFSIGNALED(status)) return "ended with status " + std::to_string(WEXITSTATUS(status));
    if (WTERMSIG(status) != SIGXCPU) return "ended by signal " + std::to_string(WTERMSIG(status));
    return "more than " + std::to_string(ProcessorSeconds()) + " s of processor time";
}

}  // namespace

std::string RunLimited(const std::function<std::string(WorkPlace&)>& work, std::span<std::byte> result) {
    const SharedMemory memory(sizeof(Shared) + result.size());
    if (!memory.Given()) return std::strerror(errno);
    Shared& shared = memory.Head();
    fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) return std::strerror(errno);
    if (child == 0) {
        LimitProcess();
        const std::string fault = work(shared.place);
        fault.copy(shared.fault, sizeof shared.fault - 1);
        std::ranges::copy(result, memory.Result());
        fflush(nullptr);
        _exit(0);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (status != 0) return std::string(shared.place.data()) + ": " + WhyEnded(status);
    std::copy_n(memory.Result(), result.size(), result.begin());
    return shared.fault;
}
