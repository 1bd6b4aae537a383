// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "fence.h"
#include "fuzz/reference_url.h"
#include "output/output_text.h"
#include "pageslice/pageslice.h"
#include "parser/url_map_dump.h"
#include "platform/afx_parse_url.h"
#include "tags/dumps.h"
#include "tags/tag_img.h"

namespace {

using namespace std::string_literals;

// Each row reads "question -> answer".
void Check(const std::vector<std::string>& rows,
           const std::function<std::string(const std::string&)>& answer) {
    for (const std::string& row : rows) {
        const std::size_t n = row.find(" -> ");
        EXPECT_EQ(answer(row.substr(0, n)), row.substr(n + 4)) << row;
    }
}

template <class... Values>
std::string Join(const Values&... values) {
    std::ostringstream out;
    ((out << values << ' '), ...);
    return out.str().substr(0, out.str().size() - 1);
}

std::pair<std::string, std::string> Halves(const std::string& s) {
    return {s.substr(0, s.find(' ')), s.substr(s.find(' ') + 1)};
}

// '-' for the empty slice, which is not the zero-length one.
std::string Chars(const text& t) {
    EXPECT_EQ(t.bIsNullTerminated(), 0);
    if (t.IsEmpty())
        return "-";
    return t.m_pStart > t.m_pEnd + 1 ? "reversed" : std::string(t.m_pStart, t.m_pEnd + 1);
}

url Url(const char* s) {
    url u;
    u = text(s);
    return u;
}

TEST(AfxParseURL, SplitsEveryScheme) {
    Check({"http://w.x.y/a/b?c -> 1 2 w.x.y /a/b?c 80", "HTTPS://h -> 1 3 h  443",
           "ftp://me:p@ss@h:2121/f -> 1 1 h /f 2121", "any+thing://h:?q@r -> 1 0 h ?q@r 0",
           "http://u@[::1:2]:65535#f -> 1 2 [::1:2] #f 65535", "http://h:65536/a -> 0 2 h /a 80",
           "http://h:8x/a -> 0 2 h /a 80", "http://[::1]8 -> 0 2 [::1]  80", "http:///a -> 0 0   0",
           "http://u@:80/a -> 0 0   0", "://h/a -> 0 0   0", "/a?u=http://h/ -> 0 0   0", " -> 0 0   0"},
          [](const std::string& s) {
              std::uint32_t nType = 7;
              std::uint16_t nPort = 7;
              std::string server = "old", object = "old";
              const int bDone = AfxParseURL(s.c_str(), nType, server, object, nPort);
              return Join(bDone, nType, server, object, nPort);
          });
}

TEST(Url, HostAndDomain) {
    Check({"http://w.x.y/index.html -> w.x.y w.x.y y", "http://host:80/a -> host:80 host host",
           "ftp://host/x -> ost host host", "http://1.2.3.4/ -> 1.2.3.4 1.2.3.4 4",
           "http://x.y./ -> x.y. x.y. -", "http:// ->   -", "abcdef -> -  -", "http://h.i\0.j/ -> h.i h.i i"s,
           "aab://aaab.aaab/ -> aab.aaab aaab.aaab aaab"},
          [](const std::string& s) {
              std::string server = "old", domain;
              WithFences(s, [&](const text& t) { domain = Chars(url::tGetDomainName(t)); });
              url::tGetHostName(text(s.data(), s.data() + s.size() - 1, 0), server);
              EXPECT_EQ(Chars(Url(s.c_str()).tGetHostName()), Chars(url::tGetHostName(s.c_str())));
              return Join(Chars(url::tGetHostName(s.c_str())), server, domain);
          });
    std::string server = "kept";
    url::tGetHostName(text(), server);
    EXPECT_EQ(server, "kept");
    const char inScheme[] = "aaah.i://aah.i/"; // the first occurrence counts, wherever it is
    EXPECT_EQ(url::tGetDomainName(text(inScheme)).m_pStart, inScheme + 5);
}

TEST(Url, ExtensionTitleAndImageType) {
    Check({"http://host/dir/file.html -> html file 0", "x.y.GIF -> GIF x.y 2", "/h/file -> /h/file - 0",
           "a/b.z/ -> z/ b 0", "a.b/file -> b/file reversed 0", "name. -> - name 0", ".ext -> ext - 0",
           " -> - - 0", "/.g -> g - 2", "a..gi -> gi a 2", "photo.JPEG -> JPEG photo 1", "a.jp -> jp a 1",
           "jpg -> jpg - 1", "a.gif?x=1 -> gif?x=1 a 0", "a.jpegs -> jpegs a 0"},
          [](const std::string& s) {
              std::string answer;
              WithFences(s, [&](const text& t) {
                  answer = Join(Chars(url::tGetExtension(t)), Chars(url::tGetFileTitle(t)));
              });
              const url u = Url(s.c_str());
              EXPECT_EQ(Join(Chars(u.tGetExtension()), Chars(u.tGetFileTitle())), answer);
              EXPECT_EQ(Join(Chars(url::tGetExtension(s.c_str())), Chars(url::tGetFileTitle(s.c_str()))),
                        answer);
              EXPECT_EQ(u.nGetImageType(), url::nGetImageType(s.c_str()));
              return Join(answer, u.nGetImageType());
          });
}

TEST(Url, EmptyAnswersAndEquality) {
    const char page[] = "http://a.b/c.gif";
    for (const text& t : {text(), text(nullptr, page, 0), text(page, nullptr, 0), text(page + 9, page, 0)}) {
        EXPECT_EQ(Join(Chars(url::tGetHostName(t)), Chars(url::tGetDomainName(t)),
                       Chars(url::tGetExtension(t)), Chars(url::tGetFileTitle(t)), url::nGetImageType(t)),
                  "- - - - 0");
    }
    EXPECT_EQ(url().pMakeAbsoluteCopy("http://h/"), nullptr);
    url::NormalizeUrl(nullptr);
    const std::string name = "A.gif"; // equal to its like at another place
    EXPECT_EQ(Join(Url("A.gif") == Url(name.c_str()), Url("A.gif") == Url("a.gif"), Url("A") == Url("A.")),
              "1 0 0");
}

class OpenList : public UrlList {
public:
    using UrlList::UrlList;
    // The bytes of the buffer, NUL shown as '.', and where the cursor stands.
    std::string Bytes() const {
        std::string s(m_pBuffer, m_pBuffer == nullptr ? m_pBuffer : m_pLast + 1);
        std::replace(s.begin(), s.end(), '\0', '.');
        return Join(s, m_pCursor - m_pBuffer);
    }
    // What pGetNext gives until the cursor stops, '|' before each answer.
    std::string Read() {
        std::string all;
        for (pMoveFirst(); m_pCursor < m_pLast;) {
            const char* p = pGetNext();
            all += "|"s + (p == nullptr ? "" : p);
        }
        return pGetNext() == nullptr ? all : "runs on";
    }
};

TEST(UrlList, PacksWhatFits) {
    // The size, then what is added; '.' stands for a NUL, '<' for a move to the start.
    Check({"0 x, -> 00  0 ", "4 abc, -> 10 abc. 4 |abc", "4 abcd -> 0 .... 0 |||",
           "4 abcd,ab -> 01 ab.. 3 |ab", "10 ab,xy -> 11 ab.xy..... 6 |ab|xy|||",
           "6 ,ab -> 11 .ab... 4 ||ab|", "3 a.b -> 0 ... 0 ||", "9 a.b,c -> 11 a...c.... 6 |a|||c||",
           "8 abcdefg,<,x.y -> 11 x...efg. 4 |x|||efg"},
          [](const std::string& s) {
              OpenList list(std::stoi(s));
              std::string results;
              std::istringstream urls(Halves(s).second + ",");
              for (std::string u; std::getline(urls, u, ',');) {
                  if (u == "<") {
                      list.pMoveFirst();
                      continue;
                  }
                  std::replace(u.begin(), u.end(), '.', '\0');
                  results += std::to_string(list.bAddUrl(FencedPage(u, Fence::Behind).Slice()));
              }
              const std::string bytes = list.Bytes();
              return Join(results, bytes, list.Read());
          });
    OpenList list(3), none(-3);
    const char c[] = "abc";
    for (const text& nothing : {text(), text(c + 2, c, 0), text(c, nullptr, 0), text(nullptr, c, 0)})
        EXPECT_EQ(list.bAddUrl(nothing) + none.bAddUrl(nothing), 2);
    EXPECT_EQ(Join(list.bAddUrl(c), list.bAddUrl(static_cast<const char*>(nullptr)), list.Bytes()),
              "0 1 ... 0");
}

TEST(UrlList, TakesItsOwnEntriesAndCopies) {
    OpenList list(9), none(0), other(2);
    list.bAddUrl("abcd");
    const char* const p = list.pMoveFirst();
    list.bAddUrl(p + 1); // moves down over itself
    EXPECT_EQ(list.Bytes(), "bcd...... 4");
    list.bAddUrl(text(p + 2, p + 5, 0)); // runs into its own copy
    const OpenList copy(list), copyOfNone(none);
    other = list;
    list = *&list;
    EXPECT_EQ(Join(copy.Bytes(), copyOfNone.Bytes(), other.Bytes(), list.Bytes()),
              "bcd.d.... 0  0 bcd.d.... 0 bcd.d.... 9");
    other = none;
    list.Clear();
    list.Clear();
    EXPECT_EQ(Join(other.Bytes(), list.Bytes(), list.bIsEmpty(), list.pMoveFirst() == nullptr), ". 0  0 1 1");
}

std::string Normalized(std::string s) {
    url::NormalizeUrl(s.data());
    return s.c_str();
}

TEST(Canonical, Form) {
    Check({" HTTP://W.X.Y/a//b/../z x -> http://w.x.y/a/z", "http://h/a/../../x -> http://h/x",
           "b/../z -> /z", "x/../../y -> /y", "http://h//a -> http://h//a", "\v\f\r\n\t A:/B -> a:/B",
           "news:X.Y -> news:X.Y", "http://h/./x -> http://h/./x", "http://h/../x -> http://h/../x",
           "HTTP://HOST -> http://host", "///../A -> ///../A", "/a/.b/..c/./ -> /a/.b/..c/",
           "a://\xC9\xD7\xDF\xFF/\xC9 -> a://\xE9\xD7\xDF\xFF/\xC9"},
          [](const std::string& s) {
              EXPECT_EQ(Normalized(s), reference::Normalized(s));
              return Normalized(s);
          });
    std::string s;
    const std::function<void()> compareAll = [&] { // all strings of up to seven of these characters
        ASSERT_EQ(Normalized(s), reference::Normalized(s)) << s;
        for (const char c : s.size() < 7 ? "/.a: A"s : ""s) {
            s.push_back(c);
            compareAll();
            s.pop_back();
        }
    };
    compareAll();
    const char* const PIECES[] = {"/", "/../", "/./", "//", ".", "..", "a", "Http:", "\xDE", "/b/", "bc"};
    std::mt19937 random(1);
    for (int n = 0; n < 20000; ++n) {
        s.assign(random() % 2, ' ');
        for (std::size_t nPieces = random() % 40; nPieces > 0; --nPieces)
            s += PIECES[random() % std::size(PIECES)];
        ASSERT_EQ(Normalized(s), reference::Normalized(s)) << s;
    }
}

TEST(Canonical, PathStartAndServerPart) {
    Check({"http://host/a/b -> 12 1", "/a/b -> 1 0", "a/b -> 0 0", "http:///x -> 8 1", "http://host -> 12 1",
           "file:/a -> 6 0", "x:a/b -> 2 0", "news:x -> 0 0", "// -> 3 0", "/// -> 3 0", "/a://b -> 1 1",
           "a/b://c -> 0 0", " -> 0 0"},
          [](const std::string& s) {
              return Join(url::nFindPathStart(s.c_str()), url::bHasServerPart(s.c_str()));
          });
}

TEST(Canonical, Resolution) {
    Check({"http://host/dir/page.html img/a.gif -> http://host/dir/img/a.gif",
           "http://h/d/p /i/A -> http://h/i/A", "http://h/d/p ../a.gif -> http://h/a.gif",
           "http://h/d/p FTP://Other/x -> ftp://other/x", "http://h/d/p news:x -> news:x",
           "http://h/d/p a/b:c -> http://h/d/a/b:c", "http://h/d/p  -> http://h/d/",
           "http://h/d/p //x -> http://h//x", "http://HOST /A -> http://host/A", "http://h/ /a -> http://h/a",
           "file a -> a", "x:a/b /c -> x:c", "a/b //H/./../c -> //h/c", " /a//b -> /a/b",
           "http://host a -> http://a", "//H/b /c -> //h/c"},
          [](const std::string& s) {
              const auto [base, relative] = Halves(s);
              const std::unique_ptr<char[]> resolved(url::pResolveUrl(base.c_str(), relative.c_str()));
              const std::unique_ptr<char[]> absolute(Url(relative.c_str()).pMakeAbsoluteCopy(base.c_str()));
              EXPECT_STREQ(resolved.get(), absolute.get());
              return std::string(resolved.get());
          });
}

TEST(Canonical, Comparison) {
    Check({"HTTP://HOST/a http://host/a -> 0 13", "http://host/A http://host/a -> -1 12", "a A -> 1 0",
           "http://host/ab http://HOST/ac -> -1 13", "http://host http://HOST -> 0 12", "ab abc -> -1 2",
           "http://host http://HOST/ -> -1 11", "/\xE9 /a -> -1 1", "//\xE9/ //a/ -> 1 2",
           "//\xC9/ //\xE9/ -> 0 4"},
          [](const std::string& s) {
              const auto [a, b] = Halves(s);
              EXPECT_EQ(url::nCompareUrls(b.c_str(), a.c_str()), -url::nCompareUrls(a.c_str(), b.c_str()));
              return Join(url::nCompareUrls(a.c_str(), b.c_str()),
                          url::nCommonPrefixLength(a.c_str(), b.c_str()));
          });
}

// A search or an edit that is not linear would take hours here.
TEST(Url, HostileUrlsTakeLinearTime) {
    const std::size_t n = std::size_t{1} << 22;
    const std::string many(n, 'a'), address = many + "://" + many + "b/";
    EXPECT_EQ(url::tGetDomainName(text(address.c_str())).m_pStart, address.data() + n + 3);
    std::string down = "/", up;
    for (std::size_t i = 0; i < n / 4; ++i) {
        down += "a/";
        up += "/..";
    }
    EXPECT_EQ(Normalized(down + up + "/c"), "/c");
    EXPECT_EQ(Normalized("http://h/x" + up + std::string(n, '/')), "http://h/");
}

// What goes to the console, '|' for each line end, '#' for the line that closes a record.
std::string Console(const std::function<void()>& print) {
    testing::internal::CaptureStdout();
    print();
    std::string shown = testing::internal::GetCapturedStdout();
    std::replace(shown.begin(), shown.end(), '\n', '|');
    const std::string rule = "|------------------------------------------|";
    for (std::size_t n; (n = shown.find(rule)) != shown.npos;)
        shown.replace(n, rule.size(), "|#");
    return shown;
}

TEST(Dumps, UrlsShowTheirFileTitle) {
    // The mode and the URL; then the console, and what is left of seven characters in a buffer.
    Check({"1 http://h/page.html -> page| page\n5", "2 my_pic2.gif -> my_pic2|my pic | my_pic\n7",
           "1 __a-.b -> __a-| a | __a-\n \n7", "3 page.html -> | \n1", "1  -> | \n1", "1 a.b/file ->  0"},
          [](const std::string& s) {
              const url u = Url(s.c_str() + 2);
              char buffer[8];
              OutputText out(buffer, buffer + 7);
              const int nLength = u.println(out, std::stoi(s));
              return Console([&] { u.println(std::stoi(s)); }) + " " + buffer + std::to_string(nLength);
          });
}

TEST(Dumps, Records) {
    const text page("<a href=d/page.html name=n><img alt=\"[x]\" src=i.gif ismap width=5>"
                    "<td nowrap colspan=2 valign=top><table border=3><tr align=center>");
    const auto behind = [&](const char* p) { return std::strstr(page.m_pStart, p) + std::strlen(p); };
    const tag_td cell(behind("<td"), page);
    EXPECT_EQ(
        Console([&] {
            tag_a(behind("<a"), page).PrintDebug();
            tag_img(behind("<img"), page).PrintDebug();
            tag_img().PrintDebug();
            tag_table(behind("<table"), page).PrintDebug();
            tag_tr(behind("<tr"), page).PrintDebug();
            cell.PrintDebug();
            cell.PrintDebugTh();
            PrintTag(behind("<a"));
            for (int n = 0; n < 8; ++n)
                PrintAlignLn(static_cast<align>(n));
        }),
        "--------------- a tag --------------------|href = page|name = n|rel = |rev = |title = |#"
        "-------------- img tag -------------------|src = i|lowsrc = |usemap = |alt text = [x]|"
        "align = ALIGN_UNKNOWN|height = -1|width = 5|border = -1|hspace = -1|vspace = -1|ismap = TRUE|#"
        "-------------- img tag -------------------|src = |lowsrc = |usemap = |alt text = |"
        "align = ALIGN_UNKNOWN|height = -1|width = -1|border = -1|hspace = -1|vspace = -1|ismap = FALSE|#"
        "--------------- table tag --------------------|caption = |align = ALIGN_UNKNOWN|width = -1|"
        "border = 3|cellspacing = -1|cellpadding = -1|#"
        "-------------- tr tag --------------------|align = center|valign = ALIGN_UNKNOWN|#"
        "-------------- td tag -------------------|nowrap = TRUE|rowspan = -1|colspan = 2|"
        "align = ALIGN_UNKNOWN|valign = top|width = -1|height = -1|#"
        "-------------- th tag -------------------|nowrap = TRUE|rowspan = -1|colspan = 2|"
        "align = ALIGN_UNKNOWN|valign = top|width = -1|height = -1|#"
        " href=d/page.html name=n>|ALIGN_UNKNOWN|top|middle|bottom|left|right|center||");
}

TEST(Dumps, UrlMap) {
    UrlMap map;
    for (const char* pHref : {"b.html", "/d/a.html", "x"}) {
        tag_a anchor;
        anchor.m_urlHref = text(pHref);
        map.Insert(anchor, text(pHref));
    }
    char buffer[64];
    OutputText console, out(buffer, buffer + 63);
    EXPECT_EQ(Console([&] { PrintUrlMap(map, console); }),
              "-------Url Map below-------|0: x|1: /d/a.html|2: b.html|---------------------------|"
              "3: |4: a|5: b|---------------------------|");
    EXPECT_EQ(Console([&] { PrintUrlMap(map, out); }) + buffer,
              "0: 1: 2: 3: 4: 5: x\n/d/a.html\nb.html\n\na\nb\n");
}

} // namespace
