// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_URL_H
#define PAGESLICE_URL_H

#include <string>

#include "pageslice/export.h"
#include "pageslice/text.h"

inline namespace pageslice_v1 {

// A URL as it stands in the page: a slice with nothing added, and the home of the URL routines.
//
// Urls compare as slices do: equal when they have the same length and the same characters, case counting.
//
// A url owns no characters. Slices that its operations return point into the characters passed in and
// carry the flag 0. No operation keeps state; none reports errors: where there is nothing to find, the
// result is empty. Null pointers count as empty URLs.
//
// Exported are the four static host operations; the other members serve the library itself and are
// reached by linking it statically.
class url : public text {
public:
    url() noexcept = default;
    url(const url&) noexcept = default;
    url& operator=(const url&) noexcept = default;
    // Takes the slice's start, end and flag.
    url& operator=(text t) noexcept;

    // The host of a URL, without its port split off: what stands between the seventh character and the
    // next '/' or NUL. The first seven characters are taken to be "http://" and not examined; the slice's
    // end is not consulted, so the URL must be followed by a '/' or a NUL in its buffer. A string of fewer
    // than seven characters gives an empty slice; a URL without a host gives a zero-length one.
    PAGESLICE_API static text tGetHostName(const char* pUrl) noexcept;
    PAGESLICE_API static text tGetHostName(const text& tUrl) noexcept;
    // The server name that splitting the URL gives; empty when it has no scheme or no host. For an empty
    // slice `host` keeps what it held. Throws std::bad_alloc.
    PAGESLICE_API static void tGetHostName(const text& tUrl, std::string& host);
    // The last dot-separated label of the server name, as a slice of the URL. Throws std::bad_alloc.
    PAGESLICE_API static text tGetDomainName(const text& tUrl);

    text tGetHostName() const noexcept;

    // What follows the last '.'; the whole slice when it has no '.', empty when it ends in one.
    static text tGetExtension(const text& tUrl) noexcept;
    static text tGetExtension(const char* pUrl) noexcept;
    text tGetExtension() const noexcept;

    // The last path segment without its extension. Where the only '.' stands before the last '/', the
    // title ends before it starts, and printing it shows nothing.
    static text tGetFileTitle(const text& tUrl) noexcept;
    static text tGetFileTitle(const char* pUrl) noexcept;
    text tGetFileTitle() const noexcept;

    // Index of the first character of the path, behind the '/' that opens it.
    static int nFindPathStart(const char* pUrl) noexcept;
    // 1 for URLs of the form scheme://...
    static int bHasServerPart(const char* pUrl) noexcept;
    // Canonical form, in place: leading white space off, the rest cut at the next one, scheme and host in
    // lower case, and in the path runs of '/' and the segments '.' and '..' folded. A segment right behind
    // the path's first '/', or at the very end, stays. Linear time.
    static void NormalizeUrl(char* pUrl) noexcept;
    // `pUrl` made absolute against `pBase`, in canonical form: a new string, released with delete[]. A
    // root-relative URL against a base without '/' behind its host is joined with one '/'; against a base
    // that is all path (nFindPathStart gives 0) it stands alone. Throws std::bad_alloc. How this differs from
    // what browsers do is listed at pageslice_resolve_url.
    static char* pResolveUrl(const char* pBase, const char* pUrl);
    // pResolveUrl of the url's own characters; null for an empty url.
    char* pMakeAbsoluteCopy(const char* pBase) const;
    // Length of the common beginning; case does not count in scheme and host.
    static int nCommonPrefixLength(const char* a, const char* b) noexcept;
    // -1, 0 or 1 under the same rule.
    static int nCompareUrls(const char* a, const char* b) noexcept;
    // By extension: 2 for gif, 1 for jpg and jpeg, 0 for others. A beginning of the word is enough.
    static int nGetImageType(const text& tUrl) noexcept;
    static int nGetImageType(const char* pUrl) noexcept;
    int nGetImageType() const noexcept;

    // Debug prints: the file title for nMode 1 and 2, an empty slice for other modes; then, when the title
    // is not all letters, once more with every run of other characters as one space. They return
    // out.GetLength().
    using text::print;
    using text::println;
    int print(OutputText& out, int bNewLine, int nMode) const;
    int println(OutputText& out, int nMode) const;
    int println(int nMode) const;
};

} // namespace pageslice_v1

#endif
