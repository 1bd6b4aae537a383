// SPDX-License-Identifier: MIT
// Each of these would keep views of something that is gone. The compiler must refuse every MISUSE, and accept
// what stands beside it.
#include <string>

#include "pageslice/page.h"
#include "pageslice/text_view.h"

std::string read();

void use() {
    const std::string html = read();
    const pageslice::page page(html);
    (void)page.links()[0];
    const pageslice::options options;
    (void)pageslice::page("<li>").title();
    (void)pageslice::page(html, options).title();
    (void)pageslice::page(std::string_view(html)).plain_text();
    (void)pageslice::to_text(html);
#if MISUSE == 1
    const pageslice::page gone(read());
#elif MISUSE == 2
    const pageslice::page gone(html + html, "http://host/");
#elif MISUSE == 3
    (void)pageslice::to_text(read());
#elif MISUSE == 4
    for (const pageslice::link& link : pageslice::page(html).links()) {
        (void)link;
    }
#elif MISUSE == 5
    (void)pageslice::page(html).url();
#elif MISUSE == 6
    const pageslice::page copy(page);
#elif MISUSE == 7
    const pageslice::page gone(read(), options);
#endif
}
