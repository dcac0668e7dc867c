// Several threads that share a row of tasks.
#pragma once

#include <cstddef>
#include <functional>

// How many of them work on so many tasks at a time. asked: 0 is one for each processor.
std::size_t workersFor(std::size_t tasks, int asked);

// Calls task(0) to task(count - 1), each once, on up to so many threads at a time, the caller's
// among them; returns when all are done. threads: as `asked`. task: throws nothing.
void workOnAll(std::size_t count, int threads, const std::function<void(std::size_t)>& task);
