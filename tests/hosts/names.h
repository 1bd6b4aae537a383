// SPDX-License-Identifier: MIT
// The host's own classes and functions, each of which counts its calls and returns 1, if anything.
#include <cstddef>

inline int g_nCalls = 0;
constexpr int CALLS = 22, RESULTS = 11;

struct CString {
    char chars[3];
};
struct tag {
    virtual int nCode() const;
};
struct OutputText {
    OutputText();
    int print(const char* p, int n);
};
struct text {
    text();
    explicit text(const char* p);
    text(const char* pStart, const char* pEnd, int bNullTerminated);
    text(const text& other);
    virtual int print(OutputText& out, int n) const;
    int GetLength() const;
    double own[9]; // more than the library's has
};
struct url : text {
    explicit url(const char* p);
    static int tGetHostName(const char* p);
};
struct UrlList {
    explicit UrlList(int n);
    int bAddUrl(const char* p);
    ~UrlList();
};
class HtmlParser {
public:
    HtmlParser(const text& tPage, const char* pUrl);
    void InitializeHtmlFile();
};
OWN int Scan(const char* p);
OWN int ReplaceChar(char* p, char from, char to);
OWN int PrintTag(const char* p);
OWN int bIsWhiteSpace(char c);
OWN int GetLastChar(const char* p);

OWN int tag::nCode() const {
    return ++g_nCalls, 1;
}
OWN OutputText::OutputText() {
    ++g_nCalls;
}
OWN int OutputText::print(const char*, int) {
    return ++g_nCalls, 1;
}
OWN text::text() : own() {
    ++g_nCalls;
}
OWN text::text(const char*) : own() {
    ++g_nCalls;
}
OWN text::text(const char*, const char*, int) : own() {
    ++g_nCalls;
}
OWN text::text(const text&) : own() {
    ++g_nCalls;
}
OWN int text::print(OutputText&, int) const {
    return ++g_nCalls, 1;
}
OWN int text::GetLength() const {
    return ++g_nCalls, 1;
}
OWN url::url(const char*) {
    ++g_nCalls;
} // and so does text::text
OWN int url::tGetHostName(const char*) {
    return ++g_nCalls, 1;
}
OWN UrlList::UrlList(int) {
    ++g_nCalls;
}
OWN int UrlList::bAddUrl(const char*) {
    return ++g_nCalls, 1;
}
OWN UrlList::~UrlList() {
    ++g_nCalls;
}
OWN HtmlParser::HtmlParser(const text&, const char*) {
    ++g_nCalls;
}
OWN void HtmlParser::InitializeHtmlFile() {
    ++g_nCalls;
}
OWN int Scan(const char*) {
    return ++g_nCalls, 1;
}
OWN int ReplaceChar(char*, char, char) {
    return ++g_nCalls, 1;
}
OWN int PrintTag(const char*) {
    return ++g_nCalls, 1;
}
OWN int bIsWhiteSpace(char) {
    return ++g_nCalls, 1;
}
OWN int GetLastChar(const char*) {
    return ++g_nCalls, 1;
}

// Makes the CALLS calls and returns the sum of the RESULTS that come back from functions with a result.
inline int UseAll() {
    char buffer[] = "own";
    const CString bytes = {{'o', 'w', 'n'}};
    tag own;
    OutputText out;
    const text empty, one("own"), two(buffer, buffer, 1), copy(one);
    const url address("own");
    UrlList list(1);
    HtmlParser(copy, buffer).InitializeHtmlFile();
    return list.bAddUrl(buffer) + own.nCode() + out.print(bytes.chars, 3) + two.print(out, 1) +
           empty.GetLength() + url::tGetHostName(buffer) + Scan(buffer) + ReplaceChar(buffer, 'o', 'n') +
           PrintTag(buffer) + bIsWhiteSpace(' ') + GetLastChar(buffer);
}
