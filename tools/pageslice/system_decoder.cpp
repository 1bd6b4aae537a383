// SPDX-License-Identifier: MIT
#include "system_decoder.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#ifdef _WIN32
#include <windows.h>
#else
#include <array>
#include <cerrno>
#include <iconv.h>
#endif

namespace program {
namespace {

struct KnownEncoding {
    std::string_view name;
    const char* iconvName;
    unsigned windowsCodePage;
};

// Encodings that stand here under a name of their own, or have a code page.
constexpr KnownEncoding KNOWN[] = {
    {"IBM866", "IBM866", 866},
    {"ISO-8859-2", "ISO-8859-2", 28592},
    {"ISO-8859-3", "ISO-8859-3", 28593},
    {"ISO-8859-4", "ISO-8859-4", 28594},
    {"ISO-8859-5", "ISO-8859-5", 28595},
    {"ISO-8859-6", "ISO-8859-6", 28596},
    {"ISO-8859-7", "ISO-8859-7", 28597},
    {"ISO-8859-8", "ISO-8859-8", 28598},
    {"ISO-8859-8-I", "ISO-8859-8", 28598},
    {"ISO-8859-13", "ISO-8859-13", 28603},
    {"ISO-8859-15", "ISO-8859-15", 28605},
    {"KOI8-R", "KOI8-R", 20866},
    {"KOI8-U", "KOI8-U", 21866},
    {"macintosh", "MACINTOSH", 10000},
    {"windows-874", "CP874", 874},
    {"windows-1250", "CP1250", 1250},
    {"windows-1251", "CP1251", 1251},
    {"windows-1252", "CP1252", 1252},
    {"windows-1253", "CP1253", 1253},
    {"windows-1254", "CP1254", 1254},
    {"windows-1255", "CP1255", 1255},
    {"windows-1256", "CP1256", 1256},
    {"windows-1257", "CP1257", 1257},
    {"windows-1258", "CP1258", 1258},
    {"x-mac-cyrillic", "MAC-UK", 10017},
    {"GBK", "GB18030", 936},
    {"gb18030", "GB18030", 54936},
    {"Big5", "BIG5-HKSCS", 950},
    {"EUC-JP", "EUC-JP-MS", 20932},
    {"ISO-2022-JP", "ISO-2022-JP", 50220},
    {"Shift_JIS", "CP932", 932},
    {"EUC-KR", "CP949", 949},
};

const KnownEncoding* find(std::string_view encoding) {
    const auto isIt = [=](const KnownEncoding& known) { return known.name == encoding; };
    const auto* const pFound = std::find_if(std::begin(KNOWN), std::end(KNOWN), isIt);
    return pFound == std::end(KNOWN) ? nullptr : pFound;
}

} // namespace

#ifdef _WIN32

struct SystemDecoder::Handle {
    unsigned codePage;
};

SystemDecoder::SystemDecoder(std::string_view encoding) {
    const KnownEncoding* const pKnown = find(encoding);
    if (pKnown != nullptr && IsValidCodePage(pKnown->windowsCodePage) != 0) {
        pHandle = std::make_unique<Handle>(Handle{pKnown->windowsCodePage});
    }
}

void SystemDecoder::append(std::string& out, std::string_view bytes) const {
    // So many at once as an int can tell, whatever they become.
    constexpr std::size_t MOST = std::size_t{1} << 28;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), MOST))) {
        const int size = static_cast<int>(std::min(bytes.size(), MOST));
        const auto widen = [&](wchar_t* pOut, int room) {
            return MultiByteToWideChar(pHandle->codePage, 0, bytes.data(), size, pOut, room);
        };
        std::wstring wide(static_cast<std::size_t>(widen(nullptr, 0)), L'\0');
        const int units = widen(wide.data(), static_cast<int>(wide.size()));
        const auto narrow = [&](char* pOut, int room) {
            return WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, pOut, room, nullptr, nullptr);
        };
        const std::size_t before = out.size();
        out.resize(before + static_cast<std::size_t>(narrow(nullptr, 0)));
        narrow(out.data() + before, static_cast<int>(out.size() - before));
    }
}

#else

struct SystemDecoder::Handle {
    explicit Handle(const char* pName) : descriptor(iconv_open("UTF-8", pName)) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (valid()) {
            iconv_close(descriptor);
        }
    }
    bool valid() const {
        return descriptor != reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr)
    }

    iconv_t descriptor;
};

SystemDecoder::SystemDecoder(std::string_view encoding) {
    const KnownEncoding* const pKnown = find(encoding);
    pHandle = std::make_unique<Handle>(pKnown != nullptr ? pKnown->iconvName : std::string(encoding).c_str());
    if (!pHandle->valid()) {
        pHandle.reset();
    }
}

void SystemDecoder::append(std::string& out, std::string_view bytes) const {
    // iconv does not write to what it reads: NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
    char* pIn = const_cast<char*>(bytes.data());
    std::size_t left = bytes.size();
    std::array<char, 4096> buffer;
    // Decodes as much as it can; 0, or why it stopped.
    const auto convert = [&](char** ppIn) {
        char* pOut = buffer.data();
        std::size_t room = buffer.size();
        const bool failed =
            iconv(pHandle->descriptor, ppIn, &left, &pOut, &room) == static_cast<std::size_t>(-1);
        const int why = failed ? errno : 0;
        out.append(buffer.data(), pOut);
        return why;
    };
    while (left > 0) {
        const int why = convert(&pIn);
        if (why == EILSEQ || why == EINVAL) {
            out += "\xEF\xBF\xBD";
            const std::size_t skipped =
                std::min<std::size_t>(left, 1); // some sequences it has passed already
            pIn += skipped;
            left -= skipped;
        }
    }
    convert(nullptr); // gives what may still combine, and begins anew
}

#endif

SystemDecoder::~SystemDecoder() = default;
SystemDecoder::SystemDecoder(SystemDecoder&&) noexcept = default;
SystemDecoder& SystemDecoder::operator=(SystemDecoder&&) noexcept = default;

} // namespace program
