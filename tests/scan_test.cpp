#include "page_fixture.h"
#include "scan/primitives.h"
#include "scan/tag_bounds.h"

namespace {

TEST(TagBounds, Find) {
    RunCases("tag end", [](const text& page) { return Rest(pFindTagEnd(page.m_pStart, page), page); });
    RunCases("end before tag",
             [](const text& page) { return Rest(pFindEndBeforeTag(page.m_pEnd, page.m_pStart), page); });
    EXPECT_TRUE(pFindEndBeforeTag(nullptr, FULL.m_pStart) == nullptr &&
                pFindScan("no such level") == nullptr);
}

} // namespace
