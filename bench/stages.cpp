// SPDX-License-Identifier: MIT
#include "stages.h"

#include <cstring>
#include <memory>

#include "pageslice/page.h"
#include "pageslice/tokens.h"
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

pageslice::options StandardOptions() {
    pageslice::options options;
    options.rules = pageslice::rules::standard;
    options.url = PAGE_URL;
    return options;
}

// All that the standard rules tell, each element looked at once.
void RunStandard(const Page& page, HtmlParser& /*indexed*/, Found* found) {
    const pageslice::page read(std::string_view(page.Data(), page.Size()), StandardOptions());
    std::size_t seen = read.title().size() + read.base().size();
    for (const std::string_view url : read.link_urls()) {
        seen += url.size();
    }
    for (const std::string_view url : read.image_urls()) {
        seen += url.size();
    }
    for (const pageslice::item item : read.list_items()) {
        seen += item.text.size();
    }
    for (const pageslice::cell cell : read.cells()) {
        seen += cell.text.size();
    }
    const std::string plain = read.plain_text();
    asm volatile("" : : "r"(seen) : "memory"); // what was looked at counts as used
    if (found != nullptr) {
        found->links += read.links().size();
        found->images += read.image_urls().size();
        found->textBytes += plain.size();
        found->titleBytes += read.title().size();
    }
}

void RunStandardPass(const Page& page, HtmlParser& /*indexed*/, Found* found) {
    const pageslice::page read(std::string_view(page.Data(), page.Size()), StandardOptions());
    if (found != nullptr) {
        found->links += read.links().size();
        found->images += read.image_urls().size();
    }
}

// Every token with all its attributes.
void RunTokens(const Page& page, HtmlParser& /*indexed*/, Found* found) {
    pageslice::tokens tokens(std::string_view(page.Data(), page.Size()));
    std::size_t seen = 0;
    for (const pageslice::token& token : tokens) {
        const bool is_tag = !token.name.empty();
        if (is_tag) {
            for (const pageslice::attribute& attribute : tokens.attributes()) {
                seen += attribute.name.size() + attribute.value.size();
            }
        }
        if (found != nullptr) {
            found->textBytes += token.kind == pageslice::token_kind::text ? token.text.size() : 0;
        }
    }
    asm volatile("" : : "r"(seen) : "memory");
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
    {"job", RunJob},         {"pass", RunPass},         {"lists", RunLists},
    {"text", RunText},       {"title", RunTitle},       {"memcpy", RunMemcpy},
    {"memchr", RunMemchr},   {"standard", RunStandard}, {"standard_pass", RunStandardPass},
    {"tokens", RunTokens},
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
