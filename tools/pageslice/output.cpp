// SPDX-License-Identifier: MIT
#include "output.h"

#include <algorithm>
#include <cerrno>

#ifdef _WIN32
#include <io.h>
#else
#include <poll.h>
#include <unistd.h>
#endif

namespace program {
namespace {

constexpr int STANDARD_OUTPUT = 1;

// How many bytes were taken; negative for none.
std::ptrdiff_t writeSome(std::string_view bytes) {
#ifdef _WIN32
    constexpr std::size_t MOST = std::size_t{1} << 15; // consoles refuse much more at once
    return _write(STANDARD_OUTPUT, bytes.data(), static_cast<unsigned>(std::min(bytes.size(), MOST)));
#else
    return ::write(STANDARD_OUTPUT, bytes.data(), bytes.size());
#endif
}

// Waits where the reader of a pipe that does not block lets one wait.
bool canTryAgain() {
#ifndef _WIN32
    if (errno == EAGAIN || errno == EWOULDBLOCK) {
        pollfd ready = {STANDARD_OUTPUT, POLLOUT, 0};
        return poll(&ready, 1, -1) >= 0 || errno == EINTR;
    }
#endif
    return errno == EINTR;
}

} // namespace

void Output::write(std::string_view bytes) {
    const std::lock_guard lock(mutex);
    if (bytes.size() > buffer.size() - used) {
        sendAll();
    }
    if (bytes.size() > buffer.size()) {
        send(bytes);
    } else {
        used += bytes.copy(buffer.data() + used, bytes.size());
    }
}

void Output::finishAnswer() {
    const std::lock_guard lock(mutex);
    if (isAwaited) {
        sendAll();
    }
}

void Output::setAwaited(bool awaited) {
    const std::lock_guard lock(mutex);
    isAwaited = awaited;
    if (awaited) {
        sendAll();
    }
}

bool Output::flush() {
    const std::lock_guard lock(mutex);
    sendAll();
    return error == 0;
}

bool Output::failed() const {
    return failure() != 0;
}

int Output::failure() const {
    const std::lock_guard lock(mutex);
    return error;
}

void Output::sendAll() {
    send({buffer.data(), used});
    used = 0;
}

void Output::send(std::string_view bytes) {
    while (error == 0 && !bytes.empty()) {
        const std::ptrdiff_t taken = writeSome(bytes);
        if (taken > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(taken));
        } else if (taken == 0 || !canTryAgain()) {
            error = taken == 0 ? EIO : errno;
        }
    }
}

} // namespace program
