// Parsers side by side over one shared page. The thread sanitizer sees what the results cannot show.
#include <thread>
#include <vector>

#include "page_fixture.h"

TEST(Threads, ShareAPage) {
    OpenParser shared(FULL, "http://host/");
    shared.InitializeHtmlFile();
    std::vector<int> same(4);
    std::vector<std::thread> threads;
    for (int& nSame : same)
        threads.emplace_back([&] {
            for (int i = 0; i < 50; ++i) {
                OpenParser own(FULL, "http://host/"), copy(shared); // reading one is allowed to all
                nSame += Lists(own) == Lists(copy) && Index(own) == FULL_INDEX && Index(copy) == FULL_INDEX;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(same, std::vector<int>(4, 50));
}
