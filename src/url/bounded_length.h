// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_URL_BOUNDED_LENGTH_H
#define PAGESLICE_URL_BOUNDED_LENGTH_H

#include <cstddef>
#include <cstring>

namespace pageslice {

// Characters before the first NUL; nMax, and no byte behind it read, when there is none among so many.
inline std::size_t nBoundedLength(const char* p, std::size_t nMax) noexcept {
    const void* const pNul = nMax == 0 ? nullptr : std::memchr(p, '\0', nMax);
    return pNul == nullptr ? nMax : static_cast<std::size_t>(static_cast<const char*>(pNul) - p);
}

} // namespace pageslice

#endif
