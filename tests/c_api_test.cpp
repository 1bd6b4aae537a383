// What the C interface promises beside the answers: codes, buffers, layouts. face_test.cpp has the answers.
#include "pageslice/pageslice_c.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>

namespace {

// Hosts in other languages write these layouts down for themselves.
static_assert(sizeof(pageslice_slice) == 2 * sizeof(void*) &&
              offsetof(pageslice_slice, size) == sizeof(void*));
static_assert(sizeof(pageslice_link) == 12 * sizeof(void*) &&
              offsetof(pageslice_link, title) == 10 * sizeof(void*));
static_assert(offsetof(pageslice_image, width) == 8 * sizeof(void*) &&
              offsetof(pageslice_image, is_map) == 8 * sizeof(void*) + 6 * sizeof(int));

struct Page {
    explicit Page(const std::string& html) {
        EXPECT_EQ(pageslice_open(html.data(), html.size(), "u", 1, &p), 0);
    }
    Page(const Page&) = delete;
    ~Page() { pageslice_close(p); }
    pageslice_page* p = nullptr;
};

TEST(CApi, VersionIsTheProjects) {
    EXPECT_EQ(pageslice_version(), PAGESLICE_VERSION);
    EXPECT_EQ(std::to_string(PAGESLICE_VERSION / 10000) + "." +
                  std::to_string(PAGESLICE_VERSION / 100 % 100) + "." +
                  std::to_string(PAGESLICE_VERSION % 100),
              PAGESLICE_PROJECT_VERSION);
}

TEST(CApi, RefusesNullPointers) {
    const Page page("<title>t</title>");
    pageslice_page* opened = page.p;
    pageslice_slice slice = {};
    pageslice_link link = {};
    pageslice_image image = {};
    std::size_t n = 7;
    const std::function<int()> calls[] = {
        [&] { return pageslice_open("", 0, nullptr, 0, nullptr); },
        [&] { return pageslice_open("", 0, nullptr, 1, &opened); },
        [&] { return pageslice_open(nullptr, 1, nullptr, 0, &opened); },
        [&] { return pageslice_get_title(nullptr, &slice); },
        [&] { return pageslice_get_title(page.p, nullptr); },
        [&] { return pageslice_get_url(nullptr, &slice); },
        [&] { return pageslice_get_url(page.p, nullptr); },
        [&] { return pageslice_get_link(nullptr, 0, &link); },
        [&] { return pageslice_get_image(nullptr, 0, &image); },
        [&] { return pageslice_get_cell(page.p, 0, nullptr); },
        [&] { return pageslice_get_plain_text(nullptr, nullptr, 0, &n); },
        [&] { return pageslice_get_plain_text(page.p, nullptr, 0, nullptr); },
        [&] { return pageslice_resolve_url(nullptr, 1, "", 0, nullptr, 0, &n); },
        [&] { return pageslice_resolve_url("", 0, nullptr, 1, nullptr, 0, &n); },
        [&] { return pageslice_normalize_url(nullptr, 1, nullptr, 0, &n); },
        [&] { return pageslice_normalize_url("", 0, nullptr, 0, nullptr); }};
    for (const auto& call : calls)
        EXPECT_EQ(call(), PAGESLICE_BAD_ARGUMENT) << "call " << &call - calls;
    EXPECT_TRUE(opened == nullptr && slice.data == nullptr && n == 7U);
    EXPECT_EQ(pageslice_count_links(nullptr) + pageslice_count_cells(nullptr), 0U);
    pageslice_close(nullptr);
}

TEST(CApi, AnswersNotFound) {
    const Page page("<li>1</li>");
    pageslice_slice slice = {};
    EXPECT_EQ(pageslice_get_item(page.p, 0, &slice), PAGESLICE_OK);
    const pageslice_slice before = slice;
    for (const std::size_t i : {std::size_t{1}, ~std::size_t{0}})
        EXPECT_EQ(pageslice_get_item(page.p, i, &slice), PAGESLICE_NOT_FOUND);
    EXPECT_EQ(pageslice_get_title(page.p, &slice), PAGESLICE_NOT_FOUND);
    EXPECT_EQ(pageslice_get_image_url(page.p, 0, &slice), PAGESLICE_NOT_FOUND);
    EXPECT_TRUE(slice.data == before.data && slice.size == before.size);
}

// Every capacity: either all is written, its NUL included and nothing behind, or nothing is.
TEST(CApi, FillsBuffersWholeOrNotAtAll) {
    const std::string html("<p>a\0b</p> c<b>", 15);
    const Page page(html);
    using Fill = std::function<int(char*, std::size_t, std::size_t*)>;
    const std::pair<Fill, std::string> rows[] = {
        {[&](auto... to) { return pageslice_get_plain_text(page.p, to...); },
         std::string(" a\0b c ", 7).substr(1)},
        {[&](auto... to) { return pageslice_resolve_url("http://h/x", 10, "y\0z", 3, to...); }, "http://h/y"},
        {[&](auto... to) { return pageslice_normalize_url("/a/./b", 6, to...); }, "/a/b"}};
    for (const auto& [fill, expected] : rows) {
        std::size_t length = 0;
        EXPECT_EQ(fill(nullptr, 0, &length), PAGESLICE_TOO_SMALL);
        EXPECT_EQ(length, expected.size());
        for (std::size_t capacity = 0; capacity <= html.size() + 2; ++capacity) {
            SCOPED_TRACE(expected + " in " + std::to_string(capacity));
            std::string buffer(html.size() + 3, '#');
            const bool fits = capacity > expected.size();
            EXPECT_EQ(fill(buffer.data(), capacity, &length), fits ? PAGESLICE_OK : PAGESLICE_TOO_SMALL);
            EXPECT_EQ(length, expected.size());
            EXPECT_EQ(buffer.substr(0, length + 1), fits ? expected + '\0' : std::string(length + 1, '#'));
            EXPECT_EQ(buffer.find_first_not_of('#', std::max(capacity, fits ? length + 1 : 0)),
                      std::string::npos);
        }
    }
}

} // namespace
