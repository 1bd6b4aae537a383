# SPDX-License-Identifier: MIT
import pathlib

import pytest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]


@pytest.fixture(params=["classic", "standard"])
def rules(request):
    return request.param


@pytest.fixture
def samples():
    return sorted((REPOSITORY / "samples").glob("*.html"))
