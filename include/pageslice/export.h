// SPDX-License-Identifier: MIT
// Marks what the library hands to its hosts. Three situations: building the dynamic library
// (PAGESLICE_BUILDING), using it (the default), and static linking on either side (PAGESLICE_STATIC).
//
// Microsoft's compiler warns (C4251) that HtmlParser holds records and standard vectors that are not exported
// themselves. They are no concern of a host that was built, as sharing C++ classes takes anyway, by the same
// family of compilers as the library and with the same standard library, since their layout then is the same:
// switch the warning off around the #include. No exported class has a base, so C4275 does not arise. All
// other hosts use pageslice_c.h, or page.h over it.
//
// What the classes throw (std::bad_alloc) a host catches in all these situations; MinGW's DLL brings a
// run-time library of its own, and std::uncaught_exceptions() of the host no longer counts right once such an
// exception was caught. The way without exceptions from outside is pageslice_c.h, or page.h, which throws in
// the host itself. The other direction has a limit: on 32-bit Windows no exception of the host's (of an
// override of text::print, say) may fly through the DLL; there it would end the host.
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
