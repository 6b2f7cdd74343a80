// Work that is shared out among processes (the game's state is one per process), its results in order.
#pragma once

#include <cstddef>
#include <functional>
#include <type_traits>
#include <vector>

// As below, with results of `size` bytes each.
void ShareOut(void* results, std::size_t size, std::size_t count, int jobs,
              const std::function<void(std::size_t i, void* result)>& work,
              const std::function<void(std::size_t i, const void* result)>& inOrder);

// Does `work` for 0 .. results.size() - 1 in `jobs` processes; with 1 it is this one. Who is free takes the next. What
// stands in `results` is what is left of those whose process died. `inOrder` is called with a result as soon as it and
// all before it are there.
template <typename Result, typename Work, typename InOrder>
void SideBySide(std::vector<Result>& results, int jobs, const Work& work, const InOrder& inOrder) {
    static_assert(std::is_trivially_copyable_v<Result>, "it comes out of another process");
    ShareOut(
        results.data(), sizeof(Result), results.size(), jobs,
        [&](std::size_t i, void* result) { *static_cast<Result*>(result) = work(i); },
        [&](std::size_t i, const void* result) {
            results[i] = *static_cast<const Result*>(result);
            inOrder(results[i]);
        });
}
