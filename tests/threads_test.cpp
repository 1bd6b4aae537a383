// SPDX-License-Identifier: MIT
// Parsers side by side over one shared page, and one page object read by all. The thread sanitizer sees what
// the results cannot show.
#include <thread>
#include <vector>

#include "page_fixture.h"
#include "pageslice/page.h"

TEST(Threads, ShareAPage) {
    OpenParser shared(FULL, "http://host/");
    shared.InitializeHtmlFile();
    const pageslice::page page(pageslice::to_view(FULL));
    const std::string expected = page.plain_text();
    std::vector<int> same(4);
    std::vector<std::thread> threads;
    for (int& nSame : same)
        threads.emplace_back([&] {
            for (int i = 0; i < 50; ++i) {
                OpenParser own(FULL, "http://host/"), copy(shared); // reading one is allowed to all
                nSame += Lists(own) == Lists(copy) && Index(own) == FULL_INDEX && Index(copy) == FULL_INDEX &&
                         page.plain_text() == expected && page.cells()[0].text == "1";
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(same, std::vector<int>(4, 50));
}
