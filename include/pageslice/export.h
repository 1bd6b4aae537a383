// Marks what the library hands to its hosts. Three situations: building the dynamic library
// (PAGESLICE_BUILDING), using it (the default), and static linking on either side (PAGESLICE_STATIC).
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
