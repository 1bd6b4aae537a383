# SPDX-License-Identifier: MIT
"""Read by mypy, not run: what the package's users may rely on."""
from typing import Optional, assert_type

import pageslice
from pageslice import Image, Link, Page, Records

page = Page(b"", "http://host/", limits=pageslice.Limits(links=5))
assert_type(page.title, Optional[str])
assert_type(page.links, Records[Link])
assert_type(page.links[1:], Records[Link])
assert_type(page.links[0].href, str)
assert_type(page.links[0].span_of("rel"), Optional[tuple[int, int]])
assert_type([image.width for image in page.images], list[Optional[int]])
assert_type({image for image in page.images}, set[Image])
assert_type([cell.row for cell in page.cells], list[Optional[int]])
assert_type(page.plain_text(), str)
assert_type([token.attributes for token in pageslice.tokens("")], list[dict[str, str]])
assert_type(list(pageslice.read_many([b"", ("", "http://host/")])), list[Page])
Page(1)  # type: ignore[arg-type]  # said to be an error, or mypy complains
