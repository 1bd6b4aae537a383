// Many pages on many threads, with results in the order of the pages.
#ifndef PAGESLICE_TOOLS_ORDERED_H
#define PAGESLICE_TOOLS_ORDERED_H

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace pageslice {

// Calls next() until it gives an empty optional or a null pointer, work(job) on what it gave, emit(result) on
// what came of it. Only work runs on several threads at once; next and emit are each called by one at a time
// and in the order of the jobs. A thread holds one job until its result is out, so that no more than
// `threads` of them are in memory. None of the three may throw. Where the system gives fewer threads, those
// do the work.
template <class Next, class Work, class Emit>
void inOrder(std::size_t threads, Next next, Work work, Emit emit) {
    std::mutex input;
    std::mutex output;
    std::condition_variable turn;
    std::size_t taken = 0;
    std::size_t emitted = 0;
    const auto loop = [&] {
        for (;;) {
            std::unique_lock inputLock(input);
            auto job = next();
            if (!job) {
                return;
            }
            const std::size_t number = taken++;
            inputLock.unlock();
            auto result = work(*job);
            std::unique_lock outputLock(output);
            turn.wait(outputLock, [&] { return emitted == number; });
            emit(std::move(result));
            ++emitted;
            turn.notify_all();
        }
    };
    std::vector<std::thread> helpers;
    try {
        for (std::size_t i = 1; i < threads; ++i) {
            helpers.emplace_back(loop);
        }
    } catch (const std::exception&) { // of the system or for lack of memory: the next would fare no better
    }
    loop();
    for (std::thread& helper : helpers) {
        helper.join();
    }
}

} // namespace pageslice

#endif
