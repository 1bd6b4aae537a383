// Marks what the library hands to its hosts. Three situations: building the dynamic library
// (PAGESLICE_BUILDING), using it (the default), and static linking on either side (PAGESLICE_STATIC).
//
// Microsoft's compiler warns (C4251) that HtmlParser holds records and standard vectors that are not exported
// themselves. They are no concern of a host that was built, as sharing C++ classes takes anyway, by the same
// family of compilers as the library and with the same standard library, since their layout then is the same:
// switch the warning off around the #include. No exported class has a base, so C4275 does not arise. All
// other hosts use pageslice_c.h, or page.h over it.
#ifndef PAGESLICE_EXPORT_H
#define PAGESLICE_EXPORT_H

#if defined(PAGESLICE_STATIC)
#define PAGESLICE_API
#elif defined(_WIN32)
#if !defined(PAGESLICE_BUILDING)
#define PAGESLICE_API __declspec(dllimport)
#elif defined(_MSC_VER)
#define PAGESLICE_API __declspec(dllexport)
#else
// GCC, once told to export a class with virtual functions, exports the type descriptions of internal classes
// too. The linker is given the list of exported names instead.
#define PAGESLICE_API
#endif
#else
#define PAGESLICE_API __attribute__((visibility("default")))
#endif

#endif
