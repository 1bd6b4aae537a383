# SPDX-License-Identifier: MIT
"""Every example of the README runs, and prints what stands there."""
import pathlib
import re
import subprocess
import sys

import pytest

README = pathlib.Path(__file__).resolve().parents[1] / "README.md"
EXAMPLES = re.findall(r"^```python\n(.*?)^```\n```text\n(.*?)^```", README.read_text(encoding="utf-8"), re.M | re.S)
SITE = {
    "index.html": "<a href=prices.html>Prices</a> <a href='eels.html'>Eels &amp; <b>more</b></a> <a href=../cod.html?a&amp;b>Cod</a>"
    " <a href=http://host/>Out</a><a href=#top>Up</a>",
    "prices.html": "<meta charset=utf-8><table><tr><th>Fish<th>Price<tr><td>Cod, <i>salted</i><td>12 €</tr></table>"
    "<table><tr><td>Eel<td>9 &euro;</table>",
}


@pytest.mark.parametrize("code, printed", EXAMPLES)
def test_examples(code, printed, tmp_path):
    (tmp_path / "site").mkdir()
    for name, html in SITE.items():
        (tmp_path / "site" / name).write_text(html, encoding="utf-8")
    run = subprocess.run([sys.executable, "-c", code], cwd=tmp_path, capture_output=True, encoding="utf-8", check=False)
    assert (run.stdout, run.returncode) == (printed, 0), run.stderr


def test_there_are_examples():
    assert len(EXAMPLES) == 4
