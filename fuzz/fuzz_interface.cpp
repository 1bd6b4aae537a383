// SPDX-License-Identifier: MIT
// A page through the C interface and page.h, by either rules: what is handed out lies in the page, buffers
// are filled whole or not at all, limits hold. By the classic rules the answers are the reference's too. The
// first characters say how the page is opened.
#include "fuzz/invariants.h"
#include "pageslice/page.h"

namespace {

using invariants::Require;
using reference::Slice;

// Runs a call that fills a buffer: with each capacity around the result's length, and gives the result.
template <class Call>
std::string Filled(const char* pWhat, Call call) {
    std::size_t nLength = 0;
    const int nCode = call(nullptr, std::size_t{0}, &nLength);
    if (nCode == PAGESLICE_NOT_A_URL || nCode == PAGESLICE_NEEDS_IDNA)
        return "-";
    Require(nCode == PAGESLICE_TOO_SMALL, pWhat);
    std::vector<char> small(nLength, '#'), exact(nLength + 1, '#');
    Require(call(small.data(), nLength, &nLength) == PAGESLICE_TOO_SMALL, pWhat);
    Require(std::count(small.begin(), small.end(), '#') == std::ssize(small), "a buffer kept as it was");
    Require(call(exact.data(), nLength + 1, &nLength) == PAGESLICE_OK, pWhat);
    Require(nLength + 1 == exact.size() && exact.back() == '\0', "the length told before");
    return {exact.data(), nLength};
}

class Opened {
public:
    Opened(std::string_view html, const pageslice::options& options) : m_html(html), m_options(options) {
        const int nCode = pageslice::page::open(html, options, m_page);
        if (nCode == PAGESLICE_BAD_ARGUMENT && options.rules == pageslice::rules::standard)
            return; // a library without them
        Require(nCode == PAGESLICE_OK, "opened");
        CheckPlaces();
        CheckBuffers();
        CheckLimits();
        if (options.rules == pageslice::rules::classic)
            CheckClassic();
    }

private:
    void In(std::string_view view) const {
        Require(view.data() == nullptr
                    ? view.empty()
                    : std::less_equal<>()(m_html.data(), view.data()) &&
                          std::less_equal<>()(view.data() + view.size(), m_html.data() + m_html.size()),
                "a view outside the page");
    }

    void CheckPlaces() const {
        In(m_page.title()), In(m_page.base());
        Require(m_page.read_to() <= m_html.size() && !m_page.encoding().empty(), "read to, encoding");
        for (const pageslice::link& l : m_page.links()) {
            for (const std::string_view view : {l.href, l.text, l.name, l.rel, l.rev, l.title, l.element})
                In(view);
            Require(l.element.starts_with('<') && l.href.data() > l.element.data(), "a link's element");
        }
        for (const pageslice::image& i : m_page.images()) {
            for (const std::string_view view : {i.src, i.lowsrc, i.alt, i.usemap, i.srcset, i.element})
                In(view);
            Require(i.element.starts_with('<'), "an image's element");
        }
        for (const pageslice::cell& c : m_page.cells())
            In(c.text);
        for (const pageslice::item& i : m_page.list_items())
            In(i.text);
        std::vector<const char*> inPageOrder, sorted;
        for (const pageslice::link& l : m_page.links_in_page_order())
            inPageOrder.push_back(l.href.data());
        for (const pageslice::link& l : m_page.links())
            sorted.push_back(l.href.data());
        std::sort(sorted.begin(), sorted.end());
        Require(inPageOrder == sorted, "links in the order of the page");
        Require(m_page.image_urls().size() <= m_page.images().size(), "images with a source");
        pageslice_item none = {};
        Require(pageslice_get_item(m_page.handle(), m_page.list_items().size(), &none, sizeof none) ==
                    PAGESLICE_NOT_FOUND,
                "one item more");
    }

    void CheckBuffers() const {
        const pageslice_page* const p = m_page.handle();
        Require(Filled("plain text", [&](auto... to) { return pageslice_get_plain_text(p, to...); }) ==
                    m_page.plain_text(),
                "plain text");
        std::size_t nLooked = 0;
        for (const pageslice::link& l : m_page.links()) {
            const auto absolute = [&](auto... to) {
                return pageslice_absolute(p, l.href.data(), l.href.size(), to...);
            };
            const std::string url = Filled("absolute", absolute);
            Require(url == "-" || url == m_page.absolute(l.href), "absolute");
            const auto plain = [&](auto... to) {
                return pageslice_get_plain_text_of(p, l.text.data(), l.text.size(), to...);
            };
            Require(Filled("a text", plain) == m_page.plain_text(l.text), "a link's plain text");
            if ((nLooked += l.text.size()) > 4 * m_html.size())
                break;
        }
    }

    // As many as there are may be, and one less is a limit.
    void CheckLimits() const {
        const auto opens = [&](std::size_t pageslice::limits::*pLimit, std::size_t nMost) {
            pageslice::options options = m_options;
            options.limits.*pLimit = nMost;
            pageslice::page page;
            const int nCode = pageslice::page::open(m_html, options, page);
            Require(nCode == PAGESLICE_OK || (nCode == PAGESLICE_LIMIT && page.handle() == nullptr),
                    "limits");
            return nCode == PAGESLICE_OK;
        };
        const std::pair<std::size_t pageslice::limits::*, std::size_t> rows[] = {
            {&pageslice::limits::links, m_page.links().size()},
            {&pageslice::limits::images, m_page.images().size()},
            {&pageslice::limits::cells, m_page.cells().size()},
            {&pageslice::limits::items, m_page.list_items().size()}};
        for (const auto& [pLimit, nThere] : rows)
            Require(opens(pLimit, std::max<std::size_t>(nThere, 1)) &&
                        (nThere < 2 || !opens(pLimit, nThere - 1)),
                    "a limit");
        opens(&pageslice::limits::index_bytes, m_html.size() + 1);
    }

    static void Same(std::string_view view, const Slice& wanted, const char* pWhat) {
        Require(view.data() == wanted.first && view.size() == wanted.View().size(), pWhat);
    }

    void CheckClassic() const {
        const reference::Page page(m_html.data(), m_html.size());
        const reference::Index index = page.MakeIndex();
        Same(m_page.title(), index.tTitle, "title");
        Require(m_page.cells().size() == index.cells.size() && m_page.links().size() == index.links.size() &&
                    m_page.list_items().size() == index.items.size(),
                "how many there are");
        for (std::size_t i = 0; i < index.cells.size(); ++i)
            Same(m_page.cells()[i].text, index.cells[i], "a cell");
        for (std::size_t i = 0; i < index.items.size(); ++i)
            Same(m_page.list_items()[i].text, index.items[i], "an item");
        auto link = m_page.links().begin();
        for (const auto& [tHref, found] : index.links) {
            Same((*link).href, tHref, "a link");
            Same((*link++).text, found.second, "a link's text");
        }
        std::size_t nSources = 0;
        const auto sources = page.ImageSources();
        for (std::size_t i = 0; i < sources.size(); ++i) {
            Same(m_page.images()[i].src, sources[i], "an image");
            if (!sources[i].bEmpty())
                Same(m_page.image_urls()[nSources++], sources[i], "an image's URL");
        }
        Require(m_page.image_urls().size() == nSources && m_page.images().size() == sources.size(), "images");
        Require(m_page.plain_text() == page.PlainText(), "plain text");
    }

    std::string_view m_html;
    pageslice::options m_options;
    pageslice::page m_page;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    const text tAll = invariants::PageOf(pData, n);
    const std::string_view all(tAll.m_pStart, n);
    const std::size_t nHead = std::min(all.find('\n'), n);
    const std::string_view head = all.substr(0, nHead);
    pageslice::options options;
    options.rules = head.starts_with('s') ? pageslice::rules::standard : pageslice::rules::classic;
    if (head.size() > 1)
        options.url = head.substr(1);
    const Opened opened(all.substr(std::min(nHead + 1, n)), options);
    const bool bValue = n % 2 == 0;
    const auto decode = [&](auto... to) { return pageslice_decode(all.data(), n, bValue ? 1 : 0, to...); };
    Require(Filled("decoded", decode) == pageslice::decode(all, bValue), "decoded");
    return 0;
}
