// SPDX-License-Identifier: MIT
// What a program by the Microsoft rules takes for granted and no package brings for them: the compiled part
// of the standard library, as much of it as the library and its hosts use, and the way from the entry to
// main. The rest, C library and unwinder, is the system's.
#include <cstdlib>
#include <new>
#include <stdexcept>

extern "C" int _fltused = 0;

// What every type's description starts with: the table of a class that only the compiler knows.
extern "C" const void* const type_info_table[1] __asm__("??_7type_info@@6B@");
const void* const type_info_table[1] = {};

namespace std {

const nothrow_t nothrow{};

exception::~exception() noexcept {}
const char* exception::what() const noexcept {
    return "exception";
}
bad_alloc::bad_alloc() noexcept {}
bad_alloc::~bad_alloc() noexcept {}
const char* bad_alloc::what() const noexcept {
    return "bad_alloc";
}
bad_array_new_length::bad_array_new_length() noexcept {}
bad_array_new_length::~bad_array_new_length() noexcept {}
const char* bad_array_new_length::what() const noexcept {
    return "bad_array_new_length";
}

inline namespace __1 { // what is thrown has a literal for its message
__libcpp_refstring::__libcpp_refstring(const char* p) : __imp_(p) {}
__libcpp_refstring::__libcpp_refstring(const __libcpp_refstring& other) noexcept : __imp_(other.__imp_) {}
__libcpp_refstring::~__libcpp_refstring() {}
} // namespace __1
logic_error::logic_error(const char* p) : __imp_(p) {}
logic_error::logic_error(const logic_error& other) noexcept : exception(other), __imp_(other.__imp_) {}
logic_error::~logic_error() noexcept {}
const char* logic_error::what() const noexcept {
    return __imp_.c_str();
}
length_error::~length_error() noexcept {}
invalid_argument::~invalid_argument() noexcept {}
out_of_range::~out_of_range() noexcept {}

} // namespace std

void* operator new(std::size_t n, const std::nothrow_t&) noexcept {
    return std::malloc(n);
}
void* operator new(std::size_t n) {
    void* const p = std::malloc(n);
    return p == nullptr ? throw std::bad_alloc() : p;
}
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept {
    return std::malloc(n);
}
void* operator new[](std::size_t n) {
    return operator new(n);
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
    std::free(p);
}
void operator delete[](void* p) noexcept {
    std::free(p);
}

#if !defined(PAGESLICE_BUILDING)
using Initializer = void (*)();
#pragma section(".CRT$XCA", read)
#pragma section(".CRT$XCZ", read)
__declspec(allocate(".CRT$XCA")) const Initializer g_pFirst = nullptr; // those of the host stand between
__declspec(allocate(".CRT$XCZ")) const Initializer g_pEnd = nullptr;

extern "C" {
#if defined(_M_IX86)
int run_host(int, char**) __asm__("_main"); // which no code may call by its name
#else
int run_host(int, char**) __asm__("main");
#endif
_ACRTIMP int _configure_narrow_argv(int);
_ACRTIMP void _initterm(const Initializer*, const Initializer*);
[[noreturn]] void Start() {
    _configure_narrow_argv(1);
    _initterm(&g_pFirst, &g_pEnd);
    std::exit(run_host(*__p___argc(), *__p___argv()));
}
}
#endif
