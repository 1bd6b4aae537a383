// SPDX-License-Identifier: MIT
// Pages from a seed. Each page is made of a few pieces drawn from the tables below, so that some pages are
// all quotes, some all list items, and some nearly sensible. A seed gives the same pages on every machine.
#ifndef PAGESLICE_FUZZ_PAGE_GENERATOR_H
#define PAGESLICE_FUZZ_PAGE_GENERATOR_H

#include <cstddef>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

class PageGenerator {
public:
    explicit PageGenerator(unsigned nSeed, const char* pPieces = PIECES) : m_random(nSeed) {
        std::istringstream table(pPieces);
        for (std::string piece; std::getline(table, piece, '|');)
            m_pieces.push_back(piece);
    }

    std::string Next() {
        std::vector<std::string> palette;
        for (std::size_t i = nBelow(12) + 1; i > 0; --i)
            palette.push_back(Piece());
        std::string page(nBelow(3), ' ');
        for (std::size_t i = nBelow(nBelow(5) == 0 ? 200 : 25); i > 0; --i) {
            const std::string piece = nBelow(9) == 0 ? Piece() : palette[nBelow(palette.size())];
            const std::size_t nEnd = page.size() + nRunLength();
            do
                Append(page, piece);
            while (page.size() < nEnd);
        }
        if (nBelow(3) == 0)
            page.resize(nBelow(page.size() + 1));
        return page;
    }

private:
    std::size_t nBelow(std::size_t n) { return m_random() % n; }

    std::string Piece() {
        const std::string_view bytes("<>\"\"='/ \0\t\n\v\f\r\x80\xffx", 17);
        if (nBelow(3) != 0)
            return m_pieces[nBelow(m_pieces.size())];
        const std::size_t nRun = nBelow(3) + 1;
        const bool bAnyByte = nBelow(8) == 0;
        return std::string(nRun, bAnyByte ? static_cast<char>(nBelow(256)) : bytes[nBelow(bytes.size())]);
    }

    void Append(std::string& page, const std::string& piece) {
        for (const char c : piece)
            page += c == '^' ? std::to_string(nBelow(40)) : std::string(1, c);
    }

    // Now and then a run up to the edge of a vector, and rarely to the edge of a page of memory.
    std::size_t nRunLength() {
        if (nBelow(30) != 0)
            return 1;
        const std::size_t nEdge = nBelow(200) == 0 ? 4096 : std::size_t{16} << nBelow(4);
        return nEdge - 3 + nBelow(6);
    }

    // '|' stands between two pieces; a '^' becomes a number.
    static constexpr const char* PIECES =
        R"(<a href=|<A HREF="b.html">|<a href=b.html#top>|<a href="b.html">|<a name>|<a |<a>|</a>|</A >|)"
        R"(<a href='d e'>|<a href="c" title="x>y">text</a>|)"
        R"(<a href = x rel=next REV=up name=n title="t <b>" href=y >z</a>|<a href=p^>q</a>|)"
        R"(<a href="p^.html">^</a>|<a href=>|<A HREF=^>link</A>|<a href=a>x</a>|<img src=i.gif>|)"
        R"(<img src=j^.gif>|<img |<img>|<imgs>|<img src="k>|)"
        R"(<IMG SRC="j.gif" ALT="[J]" width=1 height=" 2" border=x>|<img title=width src=y>|)"
        R"(<img src="" alt=^>|<img ismap usemap=#m lowsrc=l align=Middle hspace=-1 vspace=+9>|<table>|)"
        R"(</table>|<table |<tr>|</tr>|</TR >|<th>|</th>|<td>|<td |<table border width=50% align=center>|)"
        R"(<tr align=left valign=top>|</td>|<td>cell</td>|< td>|<tr><td>^</td></tr>|)"
        R"(<td nowrap colspan=2 rowspan=99999999999 align=right valign=bottom border=1 width=3 height=4>|)"
        R"(<th nowrap=x |<li>|<LI>|<li |</li>|<li>item|<li>^</li>|<ul>|</ul>|<ol>|</ol>|<title>|</title>|)"
        R"(<TITLE>Home</TITLE>|</title >|<html>|</html>|</html|<!-- |-->|<!-- a > b " -->|<!--x-->|<br/>|)"
        R"(<p>|<thead>|<center >|</>|< >|<>|<  |a > b|href=|src=| alt=|width=|nowrap|ismap|"b.html"|)"
        R"(b.html|b.html#top|=""|="12"|=" +7px"|&amp;|word|name=|valign=top|-5|)"
        R"(<p class="x">Hello, world</p>|<script>if (a<b && c>"x") s = "</a>" + 'q"';</script>|)"
        R"(<meta name="a" content='b'>)"
        "|<a\n|</a\n>|<a href=\"e\"\n>f</a>|<td\t>|<p>Hello,\n  world</p>|\r\n|\n  ";

    std::vector<std::string> m_pieces;
    std::mt19937 m_random;
};

#endif
