// SPDX-License-Identifier: MIT
// Many pages on many threads, with results in the order of the pages.
#ifndef PAGESLICE_TOOLS_ORDERED_H
#define PAGESLICE_TOOLS_ORDERED_H

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace program {

// Whose result goes out next.
class Turns {
public:
    void await(std::size_t number) {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return current == number; });
    }
    void pass() {
        {
            const std::lock_guard lock(mutex);
            ++current;
        }
        changed.notify_all();
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t current = 0;
};

// Makes a Worker for each thread and calls its functions until next() gives false: next() takes a job,
// work(myTurn) does it, emit() gives the result out. Only work runs on several threads at once; next and emit
// are each called by one at a time and in the order of the jobs. A worker whose result becomes too long to
// keep calls myTurn(), which waits until emit would be called, and gives it out in pieces.
// None of the three may throw. Where the system gives fewer threads, those do the work; the first Worker's
// constructor may throw.
template <class MakeWorker>
void inOrder(std::size_t threads, MakeWorker makeWorker) {
    std::mutex input;
    Turns turns;
    std::size_t taken = 0;
    const auto loop = [&](auto& worker) {
        for (;;) {
            std::unique_lock inputLock(input);
            if (!worker.next()) {
                return;
            }
            const std::size_t number = taken++;
            inputLock.unlock();
            worker.work([&turns, number] { turns.await(number); });
            turns.await(number);
            worker.emit();
            turns.pass();
        }
    };
    auto first = makeWorker();
    std::vector<std::thread> helpers;
    try {
        for (std::size_t i = 1; i < threads; ++i) {
            helpers.emplace_back([&] {
                try {
                    auto worker = makeWorker();
                    loop(worker);
                } catch (const std::exception&) { // no memory for one more: the others do the work
                }
            });
        }
    } catch (const std::exception&) { // of the system or for lack of memory: the next would fare no better
    }
    loop(first);
    for (std::thread& helper : helpers) {
        helper.join();
    }
}

} // namespace program

#endif
