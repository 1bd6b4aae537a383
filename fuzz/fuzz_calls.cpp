// SPDX-License-Identifier: MIT
// Calls on three parsers in any order, against what is known of each: its page, and how often it was indexed.
// The first line says which calls, the rest is cut into three pages.
#include <array>

#include "fuzz/invariants.h"

namespace {

using invariants::Parser;
using invariants::Require;

// Of any list, through what a derived class may see.
struct OpenList : UrlList {
    static std::string Bytes(const UrlList& list) {
        const char* const pBuffer = list.*&OpenList::m_pBuffer;
        const char* const pLast = list.*&OpenList::m_pLast;
        return pBuffer == nullptr ? std::string() : std::string(pBuffer, pLast + 1);
    }
};

struct Subject {
    Parser parser{};
    std::size_t nPage = NONE;
    unsigned nPasses = 0;
    UrlList images{0}, links{0}; // as they were handed out last

    static constexpr std::size_t NONE = 3;
};

class Play {
public:
    explicit Play(const std::string& characters) {
        const std::size_t nThird = characters.size() / 3 + 1;
        for (std::size_t i = 0; i < m_pages.size(); ++i) {
            const std::string part = characters.substr(std::min(i * nThird, characters.size()), nThird);
            m_pages[i].assign(part.begin(), part.end());
        }
    }

    void Call(unsigned nCall) {
        Subject& one = m_subjects[nCall / 16 % 3];
        const std::size_t nOther = nCall / 48 % 3;
        const Subject& other = m_subjects[nOther];
        switch (nCall % 16) {
        case 0:
        case 1: Load(one, nOther, nCall % 16 == 1); break;
        case 2: Forget(one); break;
        case 3: Index(one); break;
        case 4: one.parser = other.parser, one.nPage = other.nPage, one.nPasses = other.nPasses; break;
        case 5: one.parser.Load(other.parser.m_tPage, other.parser.m_pUrl, 0), Take(one, other.nPage); break;
        case 6: Rewrite(nOther); break;
        case 7: one.images = other.links, one.links = UrlList(other.images); break;
        case 8: FillLists(one); break;
        default: CheckCopy(one), FillLists(one);
        }
    }

private:
    text Page(std::size_t i) const {
        const bool bNone = i == Subject::NONE || m_pages[i].empty();
        const std::string_view page(bNone ? "" : m_pages[i].data(), bNone ? 0 : m_pages[i].size());
        return {page.data(), page.data() + page.size() - 1, 0};
    }
    static void Take(Subject& one, std::size_t nPage) {
        one.nPage = nPage;
        one.nPasses = 0;
    }
    void Load(Subject& one, std::size_t nPage, bool bIndex) {
        one.parser.Load(Page(nPage), "http://host/", bIndex ? 1 : 0);
        Take(one, nPage);
        one.nPasses = bIndex ? 1 : 0;
    }
    static void Forget(Subject& one) {
        one.parser.Clear();
        one.nPasses = 0;
    }
    static void Index(Subject& one) {
        if (one.nPasses < 3) { // what a pass finds, the next one finds again
            one.parser.InitializeHtmlFile();
            ++one.nPasses;
        }
    }

    // Another page in the same memory; whoever looks at it is told by assignment.
    void Rewrite(std::size_t nPage) {
        std::rotate(m_pages[nPage].begin(), m_pages[nPage].begin() + (m_pages[nPage].empty() ? 0 : 1),
                    m_pages[nPage].end());
        const Parser fresh(Page(nPage), "http://host/");
        for (Subject& one : m_subjects)
            if (one.nPage == nPage)
                one.parser = fresh, one.nPasses = 0;
    }

    void FillLists(Subject& one) const {
        UrlList *pImages = nullptr, *pLinks = nullptr;
        one.nPasses = std::max(one.nPasses, 1U);
        one.parser.GetUrlLists(&pImages, &pLinks);
        const std::unique_ptr<UrlList> images(pImages), links(pLinks);
        CheckLists(one, *images, *links);
        one.images = *images;
        one.links = *links;
        Require(one.images.bIsEmpty() || OpenList::Bytes(one.images).starts_with(OpenList::Bytes(*images)),
                "an assigned list");
    }

    // Whatever befell a parser, its copy answers like a new one that was indexed as often.
    void CheckCopy(const Subject& one) const {
        const text tPage = Page(one.nPage);
        Parser copy(one.parser), fresh(tPage, nullptr);
        for (unsigned i = 0; i < one.nPasses; ++i)
            fresh.InitializeHtmlFile();
        if (one.nPage == Subject::NONE)
            return;
        copy.RequireAnswers(fresh.Answers(), "a parser after these calls");
        if (one.nPasses <= 1)
            copy.RequireAnswers(invariants::ReferenceAnswers(tPage), "its page");
    }

    void CheckLists(const Subject& one, const UrlList& images, const UrlList& links) const {
        const reference::Page page = invariants::ReferenceOf(Page(one.nPage));
        std::vector<reference::Slice> hrefs;
        for (const auto& [tHref, link] : page.MakeIndex().links)
            hrefs.insert(hrefs.end(), one.nPasses, tHref);
        const auto listOf = reference::Page::ListOf;
        Require(OpenList::Bytes(links).size() == listOf(hrefs).size(), "as many links as the passes found");
        Require(OpenList::Bytes(images) == listOf(page.ImageSources()), "the images of the page as it is");
    }

    std::array<std::vector<char>, 3> m_pages;
    std::array<Subject, 3> m_subjects;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    invariants::Use(invariants::SCANS[n % std::size(invariants::SCANS)]);
    const std::string all(reinterpret_cast<const char*>(pData), n);
    const std::string calls = all.substr(0, all.find('\n'));
    Play play(all.substr(std::min(calls.size() + 1, n)));
    for (const char c : calls.substr(0, 60))
        play.Call(static_cast<unsigned char>(c));
    play.Call(9);
    return 0;
}
