// SPDX-License-Identifier: MIT
// What the C interface promises beside the answers: codes, buffers, layouts. face_test.cpp has the answers.
#include "pageslice/tokens_c.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace {

// Hosts in other languages write these layouts down for themselves: no field moves within a major version,
// and no later field stands where an older host has padding in what it hands in.
constexpr std::size_t P = sizeof(void*);
static_assert(sizeof(pageslice_slice) == 2 * P && offsetof(pageslice_slice, size) == P);
static_assert(offsetof(pageslice_options, url) == P && offsetof(pageslice_options, encoding) == 3 * P &&
              offsetof(pageslice_options, most_links) == 5 * P &&
              offsetof(pageslice_options, most_index_bytes) == 9 * P && sizeof(pageslice_options) == 10 * P);
static_assert(offsetof(pageslice_link, title) == 10 * P && offsetof(pageslice_link, element) == 12 * P &&
              sizeof(pageslice_link) == 14 * P);
static_assert(offsetof(pageslice_image, srcset) == 8 * P && offsetof(pageslice_image, element) == 10 * P &&
              offsetof(pageslice_image, width) == 12 * P &&
              offsetof(pageslice_image, is_map) == 12 * P + 6 * sizeof(int));
static_assert(offsetof(pageslice_cell, table) == 2 * P && sizeof(pageslice_cell) == 2 * P + 24 &&
              sizeof(pageslice_item) == 2 * P);

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
    EXPECT_STREQ(pageslice_version_string(), PAGESLICE_PROJECT_VERSION);
    EXPECT_EQ(std::to_string(PAGESLICE_VERSION_MAJOR) + "." + std::to_string(PAGESLICE_VERSION_MINOR) + "." +
                  std::to_string(PAGESLICE_VERSION_PATCH),
              PAGESLICE_PROJECT_VERSION);
}

TEST(CApi, RefusesWhatIsNoArgument) {
    constexpr std::size_t TOO_LONG = std::size_t{PTRDIFF_MAX} + 1;
    const char* const wraps = reinterpret_cast<const char*>(UINTPTR_MAX - 9); // ten bytes below the end
    const auto open = [](pageslice_page** to, auto change) {
        pageslice_options options = {};
        change(options);
        return pageslice_open_with("", 0, &options, sizeof options, to);
    };
    const Page page("<title>t</title>");
    pageslice_page* opened = page.p;
    pageslice_slice slice = {};
    pageslice_link link = {};
    pageslice_image image = {};
    char buffer[1] = {};
    std::size_t n = 7;
    const std::function<int()> calls[] = {
        [&] { return pageslice_open("", 0, nullptr, 0, nullptr); },
        [&] { return pageslice_open("", 0, nullptr, 1, &opened); },
        [&] { return pageslice_open(nullptr, 1, nullptr, 0, &opened); },
        [&] { return pageslice_open("", SIZE_MAX, nullptr, 0, &opened); },
        [&] { return pageslice_open("", TOO_LONG, nullptr, 0, &opened); },
        [&] { return pageslice_open(wraps, 11, nullptr, 0, &opened); },
        [&] { return pageslice_open("", 0, "", TOO_LONG, &opened); },
        [&] { return open(&opened, [](auto& options) { options.rules = 9; }); },
        [&] { return open(&opened, [](auto& options) { options.url_size = 1; }); },
        [&] { return open(&opened, [](auto& options) { options.encoding_size = 1; }); },
        [&] { return pageslice_get_title(nullptr, &slice); },
        [&] { return pageslice_get_title(page.p, nullptr); },
        [&] { return pageslice_get_base(nullptr, &slice); },
        [&] { return pageslice_get_encoding(page.p, nullptr); },
        [&] { return pageslice_get_url(nullptr, &slice); },
        [&] { return pageslice_get_url(page.p, nullptr); },
        [&] { return pageslice_get_link(nullptr, 0, &link, sizeof link); },
        [&] { return pageslice_get_image(nullptr, 0, &image, sizeof image); },
        [&] { return pageslice_get_cell(page.p, 0, nullptr, sizeof(pageslice_cell)); },
        [&] { return pageslice_get_plain_text(nullptr, nullptr, 0, &n); },
        [&] { return pageslice_get_plain_text(page.p, nullptr, 0, nullptr); },
        [&] { return pageslice_get_plain_text(page.p, buffer, SIZE_MAX, &n); },
        [&] { return pageslice_get_plain_text_of(page.p, nullptr, 1, nullptr, 0, &n); },
        [&] { return pageslice_get_plain_text_of(page.p, "", TOO_LONG, nullptr, 0, &n); },
        [&] { return pageslice_absolute(nullptr, "", 0, nullptr, 0, &n); },
        [&] { return pageslice_absolute(page.p, wraps, 11, nullptr, 0, &n); },
        [&] { return pageslice_decode("", TOO_LONG, 0, nullptr, 0, &n); },
        [&] { return pageslice_get_read_to(page.p, nullptr); },
        [&] { return pageslice_resolve_url(nullptr, 1, "", 0, nullptr, 0, &n); },
        [&] { return pageslice_resolve_url("", 0, "", SIZE_MAX, nullptr, 0, &n); },
        [&] { return pageslice_resolve_standard_url("", 0, "", SIZE_MAX, nullptr, 0, &n); },
        [&] { return pageslice_normalize_url("", TOO_LONG, nullptr, 0, &n); },
        [&] { return pageslice_normalize_url("", 0, nullptr, 0, nullptr); }};
    for (const auto& call : calls)
        EXPECT_EQ(call(), PAGESLICE_BAD_ARGUMENT) << "call " << &call - calls;
    EXPECT_EQ(opened, nullptr);
    EXPECT_EQ(slice.data, nullptr);
    EXPECT_EQ(n, 7U);
    EXPECT_EQ(pageslice_count_links(nullptr) + pageslice_count_cells(nullptr), 0U);
    EXPECT_EQ(pageslice_plain_text_bound(nullptr, 9), 0U);
    pageslice_close(nullptr);
    pageslice_release_string(nullptr);
}

TEST(CApi, AnswersNotFound) {
    const Page page("<li>1</li>");
    pageslice_item item = {};
    EXPECT_EQ(pageslice_get_item(page.p, 0, &item, sizeof item), PAGESLICE_OK);
    const pageslice_slice before = item.text;
    for (const std::size_t i : {std::size_t{1}, ~std::size_t{0}})
        EXPECT_EQ(pageslice_get_item(page.p, i, &item, sizeof item), PAGESLICE_NOT_FOUND);
    EXPECT_EQ(pageslice_get_title(page.p, &item.text), PAGESLICE_NOT_FOUND);
    EXPECT_EQ(pageslice_get_base(page.p, &item.text), PAGESLICE_NOT_FOUND);
    EXPECT_EQ(pageslice_get_image_url(page.p, 0, &item.text), PAGESLICE_NOT_FOUND);
    EXPECT_EQ(std::pair(item.text.data, item.text.size), std::pair(before.data, before.size));
}

// Each limit lets through what it allows, refuses one more, and leaves the others alone.
TEST(CApi, Limits) {
    const std::string html =
        "<table><tr><td>1</td><td>2</td></table><li>3</li><a href=x>4</a> <a href=y>5</a>"
        "<a href=z>6</a><img><img src=i>";
    const std::pair<std::size_t pageslice_options::*, std::size_t> rows[] = {
        {&pageslice_options::most_links, 3},
        {&pageslice_options::most_images, 2},
        {&pageslice_options::most_cells, 2},
        {&pageslice_options::most_items, 1}};
    for (const int rules : {PAGESLICE_CLASSIC, PAGESLICE_STANDARD}) {
        SCOPED_TRACE(rules);
        const auto open_with = [&](std::size_t pageslice_options::*limit, std::size_t most) {
            pageslice_options options = {};
            options.rules = rules;
            options.*limit = most;
            pageslice_page* page = nullptr;
            const int code = pageslice_open_with(html.data(), html.size(), &options, sizeof options, &page);
            EXPECT_EQ(page != nullptr, code == PAGESLICE_OK);
            pageslice_close(page);
            return code;
        };
        for (const auto& [limit, count] : rows)
            for (std::size_t most = 0; most <= count + 1; ++most)
                EXPECT_EQ(open_with(limit, most), most == 0 || most >= count ? PAGESLICE_OK : PAGESLICE_LIMIT)
                    << &limit - &rows[0].first << " at most " << most;
        int code = PAGESLICE_LIMIT;
        for (std::size_t bytes = 1; bytes < 8192; bytes += 7) {
            const int larger = open_with(&pageslice_options::most_index_bytes, bytes);
            EXPECT_TRUE(larger == code || larger == PAGESLICE_OK) << bytes;
            code = larger;
        }
        EXPECT_EQ(code, PAGESLICE_OK);
    }
}

// What the tokens of a page answer where something is missing, and at their end.
TEST(CApi, Tokens) {
    pageslice_tokens* tokens = nullptr;
    pageslice_token token = {};
    pageslice_attribute attribute = {};
    std::size_t count = 7;
    ASSERT_EQ(pageslice_open_tokens("<a b c=d B=e>", 13, &tokens), PAGESLICE_OK);
    const std::function<int()> calls[] = {
        [&] { return pageslice_open_tokens("", 0, nullptr); },
        [&] { return pageslice_next_token(nullptr, &token, sizeof token); },
        [&] { return pageslice_next_token(tokens, nullptr, sizeof token); },
        [&] { return pageslice_read_attributes(nullptr, &count); },
        [&] { return pageslice_read_attributes(tokens, nullptr); },
        [&] { return pageslice_get_attribute(nullptr, 0, &attribute, sizeof attribute); },
        [&] { return pageslice_find_attribute(nullptr, "b", 1, &attribute, sizeof attribute); },
        [&] { return pageslice_find_attribute(tokens, nullptr, 1, &attribute, sizeof attribute); }};
    for (const auto& call : calls)
        EXPECT_EQ(call(), PAGESLICE_BAD_ARGUMENT) << "call " << &call - calls;
    EXPECT_EQ(count, 7U);

    EXPECT_EQ(pageslice_next_token(tokens, &token, sizeof token), PAGESLICE_OK);
    EXPECT_EQ(token.kind, PAGESLICE_TOKEN_START_TAG);
    EXPECT_EQ(pageslice_read_attributes(tokens, &count), PAGESLICE_OK);
    EXPECT_EQ(count, 2U);
    EXPECT_EQ(pageslice_get_attribute(tokens, 0, &attribute, sizeof attribute), PAGESLICE_OK);
    EXPECT_EQ(attribute.value.data, nullptr);
    EXPECT_EQ(pageslice_get_attribute(tokens, 2, &attribute, sizeof attribute), PAGESLICE_NOT_FOUND);
    EXPECT_EQ(pageslice_find_attribute(tokens, "C", 1, &attribute, sizeof attribute), PAGESLICE_OK);
    EXPECT_EQ(std::string(attribute.value.data, attribute.value.size), "d");
    EXPECT_EQ(pageslice_find_attribute(tokens, "d", 1, &attribute, sizeof attribute), PAGESLICE_NOT_FOUND);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(pageslice_next_token(tokens, &token, sizeof token), PAGESLICE_NOT_FOUND);
    pageslice_close_tokens(tokens);
    pageslice_close_tokens(nullptr);
}

// Every capacity: either all is written, its NUL included and nothing behind, or nothing is.
TEST(CApi, FillsBuffersWholeOrNotAtAll) {
    const std::string html("<p>a\0b</p> c<b>", 15);
    const Page page(html);
    using Fill = std::function<int(char*, std::size_t, std::size_t*)>;
    const std::pair<Fill, std::string> rows[] = {
        {[&](auto... to) { return pageslice_get_plain_text(page.p, to...); },
         std::string(" a\0b c ", 7).substr(1)},
        {[&](auto... to) { return pageslice_get_plain_text_of(page.p, "<i>x", 4, to...); }, "x"},
        {[&](auto... to) { return pageslice_decode("&#x20ac;&notin", 14, 0, to...); },
         "\xE2\x82\xAC\xC2\xACin"},
        {[&](auto... to) { return pageslice_decode("a&notin", 7, 1, to...); }, "a&notin"},
        {[&](auto... to) { return pageslice_absolute(page.p, "/a\0b", 4, to...); }, "/a"},
        {[&](auto... to) { return pageslice_resolve_url("http://h/x", 10, "y\0z", 3, to...); }, "http://h/y"},
        {[&](auto... to) { return pageslice_resolve_standard_url("http://h/x", 10, "//\ti", 4, to...); },
         "http://i/"},
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
