#!/bin/sh
# SPDX-License-Identifier: MIT
# bench/check.sh           counts instructions and data misses: no stage takes more than it did, and hostile pages cost
#                          linear work
# bench/check.sh --store   stores the figures that the stages are compared with
set -eu
here=$(dirname "$0")
programs=$("$here/build.sh")
"$here/guard.py" "$programs/pageslice_job" "$@"
[ $# -gt 0 ] || "$here/growth.py" "$programs/pageslice_growth"
