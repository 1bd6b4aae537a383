// The same job done with general HTML libraries: title, every a[href] with its text, every img[src], plain
// text, and no more than that.
#ifndef PAGESLICE_BENCH_PEERS_H
#define PAGESLICE_BENCH_PEERS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "stages.h"

namespace bench {

// What a peer collects of one page. It is kept cheap, so that a peer's time is the peer's own: all URLs stand
// in one string, and a link's text is a range of the plain text.
class PeerAnswer {
public:
    explicit PeerAnswer(std::size_t pageSize);

    void OpenLink(std::string_view href);
    void CloseLink();
    void AddImage(std::string_view source);
    void OpenTitle() { m_inTitle = true; }
    void CloseTitle() { m_inTitle = false; }
    // Every tag separates words.
    void AddTag();
    // Runs of LF, CR and space become one space.
    void AddText(std::string_view characters);

    void CountInto(Found* found) const;

private:
    struct Link {
        std::size_t urlEnd;
        std::size_t textBegin;
        std::size_t textEnd;
    };

    std::string m_urls; // of links
    std::vector<Link> m_links;
    std::string m_imageUrls;
    std::vector<std::size_t> m_imageUrlEnds;
    std::string m_text;
    std::string m_title;
    bool m_inLink = false;
    bool m_inTitle = false;
};

#if defined(PAGESLICE_WITH_LIBXML2)
void RunLibxml2(const Page& page, HtmlParser& indexed, Found* found);
#endif
#if defined(PAGESLICE_WITH_GUMBO)
void RunGumbo(const Page& page, HtmlParser& indexed, Found* found);
#endif

} // namespace bench

#endif
