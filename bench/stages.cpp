#include "stages.h"

#include <cstring>
#include <memory>

#include "peers.h"

namespace bench {

namespace {

std::size_t CountUrls(UrlList& list) {
    std::size_t n = 0;
    for (list.pMoveFirst(); list.pGetNext() != nullptr;) {
        ++n;
    }
    return n;
}

void TakeLists(HtmlParser& parser, Found* found) {
    UrlList* images = nullptr;
    UrlList* links = nullptr;
    parser.GetUrlLists(&images, &links);
    const std::unique_ptr<UrlList> imagesOwner(images);
    const std::unique_ptr<UrlList> linksOwner(links);
    if (found != nullptr) {
        found->images += CountUrls(*images);
        found->links += CountUrls(*links);
    }
}

void TakeText(HtmlParser& parser, Found* found) {
    char* plain = nullptr;
    parser.bConvertHtmlToPlainText(&plain);
    const std::unique_ptr<char[]> owner(plain);
    if (found != nullptr && plain != nullptr) {
        found->textBytes += std::strlen(plain);
    }
}

void TakeTitle(const HtmlParser& parser, Found* found) {
    const std::unique_ptr<char[]> title(parser.pMakeTitleCopy());
    if (found != nullptr && title != nullptr) {
        found->titleBytes += std::strlen(title.get());
    }
}

void RunJob(const Page& page, HtmlParser& /*indexed*/, Found* found) {
    HtmlParser parser(page.Slice(), PAGE_URL);
    parser.InitializeHtmlFile();
    TakeLists(parser, found);
    TakeText(parser, found);
    TakeTitle(parser, found);
}

void RunPass(const Page& page, HtmlParser& /*indexed*/, Found* /*found*/) {
    HtmlParser parser(page.Slice(), PAGE_URL);
    parser.InitializeHtmlFile();
}

void RunLists(const Page& /*page*/, HtmlParser& indexed, Found* found) {
    TakeLists(indexed, found);
}

void RunText(const Page& /*page*/, HtmlParser& indexed, Found* found) {
    TakeText(indexed, found);
}

void RunTitle(const Page& /*page*/, HtmlParser& indexed, Found* found) {
    TakeTitle(indexed, found);
}

// The least that a conversion costs which hands out a new string: allocate, copy, release.
void RunMemcpy(const Page& page, HtmlParser& /*indexed*/, Found* found) {
    const std::unique_ptr<char[]> copy(new char[page.Size() + 1]);
    std::memcpy(copy.get(), page.Data(), page.Size());
    asm volatile("" : : "r"(copy.get()) : "memory"); // the copy counts as used
    if (found != nullptr) {
        found->textBytes += page.Size();
    }
}

// The least that reading every character costs: one search for what is hardly ever there.
void RunMemchr(const Page& page, HtmlParser& /*indexed*/, Found* found) {
    const char* p = page.Data();
    const char* const end = p + page.Size();
    while (p != nullptr && p < end) {
        p = static_cast<const char*>(std::memchr(p, '\x01', static_cast<std::size_t>(end - p)));
        p = p == nullptr ? p : p + 1;
    }
    asm volatile("" : : "r"(p) : "memory");
    if (found != nullptr) {
        found->textBytes += page.Size();
    }
}

constexpr Stage STAGES[] = {
    {"job", RunJob},         {"pass", RunPass},     {"lists", RunLists},   {"text", RunText},
    {"title", RunTitle},     {"memcpy", RunMemcpy}, {"memchr", RunMemchr},
#if defined(PAGESLICE_WITH_LIBXML2)
    {"libxml2", RunLibxml2},
#endif
#if defined(PAGESLICE_WITH_GUMBO)
    {"gumbo", RunGumbo},
#endif
};

} // namespace

std::span<const Stage> Stages() noexcept {
    return STAGES;
}

} // namespace bench
