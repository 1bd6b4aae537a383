// SPDX-License-Identifier: MIT
#include "platform/idna.h"

#if defined(PAGESLICE_IDN)

#include <cstring>
#include <new>

#include <idn2.h>

namespace pageslice {

std::size_t domain_to_ascii(const char* domain, char* ascii) {
    char* found = nullptr;
    const int code = idn2_to_ascii_8z(domain, &found, IDN2_NONTRANSITIONAL | IDN2_NFC_INPUT);
    if (code == IDN2_MALLOC) {
        throw std::bad_alloc();
    }
    if (code != IDN2_OK) {
        return 0;
    }
    const std::size_t size = std::strlen(found);
    const bool fits = size <= LONGEST_ASCII_DOMAIN;
    if (fits) {
        std::memcpy(ascii, found, size);
    }
    idn2_free(found);
    return fits ? size : 0;
}

} // namespace pageslice

#else

namespace pageslice {

std::size_t domain_to_ascii(const char* /*domain*/, char* /*ascii*/) {
    return 0;
}

} // namespace pageslice

#endif
