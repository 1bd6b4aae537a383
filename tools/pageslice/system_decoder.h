// SPDX-License-Identifier: MIT
// The operating system's own knowledge of encodings.
#ifndef PAGESLICE_TOOLS_SYSTEM_DECODER_H
#define PAGESLICE_TOOLS_SYSTEM_DECODER_H

#include <memory>
#include <string>
#include <string_view>

namespace program {

class SystemDecoder {
public:
    // `encoding` is a name that the Encoding Standard gives; systems call many of them otherwise.
    explicit SystemDecoder(std::string_view encoding);
    ~SystemDecoder();
    SystemDecoder(SystemDecoder&&) noexcept;
    SystemDecoder& operator=(SystemDecoder&&) noexcept;

    // Whether the system knows the encoding.
    bool known() const { return pHandle != nullptr; }
    // Only where it does: appends `bytes` in UTF-8. A byte that cannot be decoded becomes U+FFFD; Windows
    // chooses the mark itself for some encodings.
    void append(std::string& out, std::string_view bytes) const;

private:
    struct Handle;
    std::unique_ptr<Handle> pHandle;
};

} // namespace program

#endif
