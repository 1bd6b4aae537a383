#!/bin/sh
# SPDX-License-Identifier: MIT
# ./check.sh              builds and runs the tests
# ./check.sh all          runs every stage
# ./check.sh STAGE...     runs these stages; ./check.sh list names them
# ./check.sh reformat     brings every source file into the project's format
# ./check.sh --help       says this
#
# CONTRIBUTING.md tells what each stage proves. Builds stand in build/, logs of failed tests in build/STAGE/tests.log.
set -eu
cd "$(dirname "$0")"
case ${1-} in -h | --help) sed -n '/^# \.\//,/^[^#]/s/^# \{0,1\}//p' check.sh; exit ;; esac
if ! mkdir -p build 2>/dev/null || [ ! -w build ]; then
  echo "check.sh: $PWD/build cannot be written; the stages take a copy of this folder that can" >&2
  exit 1
fi

stages="format dev release tidy cppcheck clang asan tsan valgrind linux-x86 abi windows install cluster single-file python docs standard browser fuzz huge coverage bench"

cores=$(nproc 2>/dev/null || echo 2)
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$cores}"
export CTEST_PARALLEL_LEVEL="${CTEST_PARALLEL_LEVEL:-$cores}"

# The source files that git knows by these patterns; none at all would be found without fault, so that is an error.
sources() {
  found=$(git ls-files --cached --others --exclude-standard "$@" | while read -r f; do [ ! -f "$f" ] || echo "$f"; done)
  if [ -z "$found" ]; then
    echo "check.sh: no source files found; git names them to this stage, so it takes a git checkout" >&2
    return 1
  fi
  echo "$found"
}
formatted_sources() { sources '*.h' '*.cpp' '*.c' '*.inc'; }

build() {
  tools/quietly cmake --preset "$1"
  tools/quietly cmake --build --preset "$1"
}

# Shows ctest's closing lines; and what the failing tests printed, behind them, where it is seen first.
run_tests() {
  log=build/$1/tests.log
  failed=0
  ctest --preset "$1" >"$log" 2>&1 || failed=1
  sed -n '/tests passed/,$p' "$log" | grep . || :
  [ $failed = 0 ] && return
  sed -e '/tests passed/,$d' -e '/^ *Start /d' -e '/^ *[0-9]*\/[0-9]* Test .* Passed /d' "$log" | cat -s
  exit 1
}

build_and_run_tests() { build "$1"; run_tests "$1"; }

# Prints the share of lines and branches that tests and stored inputs reach, file by file, and fails when it is low;
# build/coverage/lines.txt shows every line with its count.
run_with_coverage() {
  out=build/coverage
  export LLVM_PROFILE_FILE="$PWD/$out/profiles/%m.profraw"
  build coverage
  rm -rf $out/profiles # the build has run the programs too, to list their tests
  (export PAGESLICE_STRESS=500 && run_tests coverage) # more pages reach no more lines
  llvm-profdata-14 merge -o $out/all.profdata $out/profiles/*.profraw
  set -- $out/bin/pageslice_tests --instr-profile=$out/all.profdata
  for program in $out/bin/*_inputs $out/bin/pageslice_alloc_tests; do
    set -- "$@" --object "$program"
  done
  # Each warns of the unused copies of inline functions, which have no counts.
  { llvm-cov-14 show --show-instantiations=false "$@" src include >$out/lines.txt &&
    llvm-cov-14 export "$@" src include >$out/coverage.json; } 2>$out/warnings.txt ||
    { cat $out/warnings.txt; exit 1; }
  tools/coverage $out/lines.txt $out/coverage.json 97
}

# Without the long tests, which the sanitizers see; the allocation tests keep the operators that they replace.
run_under_valgrind() {
  for program in pageslice_tests pageslice_alloc_tests pageslice_exported_tests; do
    PAGESLICE_STRESS=200 tools/quietly \
      valgrind --quiet --error-exitcode=1 --leak-check=full --suppressions=tests/valgrind.supp --soname-synonyms=somalloc=nouserintercepts \
      build/dev/bin/$program --gtest_filter=-*SamplesAtEachLength:*LinearTime*
  done
}

run_stage() {
  case $1 in
    format)
      tools/need format python
      files=$(formatted_sources)
      echo "$files" | xargs tools/quietly clang-format-14 --dry-run -Werror
      tools/floors
      tools/spdx
      tools/character-names --check
      ;;
    reformat)
      tools/need format
      files=$(formatted_sources)
      echo "$files" | xargs clang-format-14 -i
      ;;
    dev | release)
      tools/need build test
      build_and_run_tests "$1"
      ;;
    clang | asan | tsan)
      tools/need build test clang
      build_and_run_tests "$1"
      ;;
    tidy)
      tools/need build test tidy
      tools/quietly cmake --preset dev
      files=$(sources 'src/*.cpp' 'tools/*.cpp' 'examples/*.cpp')
      echo "$files" | xargs -n 1 -P "$cores" tools/quietly clang-tidy-14 --quiet -p build/dev
      ;;
    cppcheck)
      tools/need cppcheck
      tools/quietly cppcheck --quiet --error-exitcode=1 --std=c++17 --language=c++ --inline-suppr -j "$cores" \
        --enable=warning,performance,portability --suppress=missingIncludeSystem --suppress=passedByValue \
        -I include -I src src include tools
      ;;
    valgrind)
      tools/need build test valgrind
      build dev
      run_under_valgrind
      ;;
    linux-x86)
      tools/need build test linux-x86
      build_and_run_tests linux-x86
      ;;
    abi)
      tools/need build test abi python clang
      build dev
      abi/check
      tests/hosts/run build/dev
      ;;
    windows)
      tools/need build test windows python clang linux-x86
      tests/msvc/run
      for family in x86 x64; do
        build windows-$family
        tests/windows/inspect $family build/windows-$family
      done
      tests/windows/run-x86
      tests/windows/run-x64
      ;;
    install)
      tools/need build test install
      build release
      build deb
      tests/install/run build/release build/deb
      ;;
    cluster)
      tools/need build test cluster
      tools/quietly cmake --preset release
      tools/quietly cmake --build --preset release --target pageslice_program
      tests/cluster/run build/release/bin/pageslice
      ;;
    single-file)
      tools/need build test clang python
      build_and_run_tests single-file
      tests/single-file/run
      ;;
    python)
      tools/need build test python package cluster
      command -v npm >/dev/null || tools/need node # brings the pages that the package's answers are compared on
      tools/quietly cmake --preset release
      tools/quietly cmake --build --preset release --target pageslice_program
      corpus=$(bench/corpus.sh)
      PAGESLICE_PROGRAM=$PWD/build/release/bin/pageslice PAGESLICE_CORPUS=$corpus python/check
      ;;
    standard)
      tools/need build
      tools/quietly cmake --preset release
      tools/quietly cmake --build --preset release --target pageslice_dump
      tests/standard/run "${STANDARD_PAGES:-20000}"
      ;;
    browser)
      tools/need build browser
      tools/quietly cmake --preset release
      tools/quietly cmake --build --preset release --target pageslice_program
      tests/browser/run build/release/bin/pageslice
      ;;
    fuzz)
      fuzz/run "${FUZZ_SECONDS:-60}"
      ;;
    huge)
      # The page's text takes 2 GiB, and a copy of it is made.
      if ! awk '$1 == "MemAvailable:" && $2 > 5000000 { enough = 1 } END { exit !enough }' /proc/meminfo; then
        echo "huge: not run, for it takes 5 GB of memory"
        return
      fi
      tools/need build test
      tools/quietly cmake --preset release
      tools/quietly cmake --build --preset release --target pageslice_huge_tests
      tools/quietly ctest --test-dir build/release -C huge -L huge --no-tests=error --output-on-failure
      ;;
    docs)
      tools/need build test docs python
      tools/quietly cmake --preset dev
      tools/quietly cmake --build --preset dev --target pageslice
      tools/doc-blocks build/dev README.md docs/rules.md docs/guide.md docs/internals.md
      version=$(sed -n 's/^project(pageslice VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
      for file in CHANGELOG.md docs/pageslice.1 include/pageslice/pageslice_c.h; do
        grep -q "[\"[ ]$version[]\"]" $file || { echo "$file does not name version $version" >&2; exit 1; }
      done
      mkdir -p build/docs
      tools/quietly doxygen docs/Doxyfile
      ;;
    coverage)
      tools/need build test clang python
      run_with_coverage
      ;;
    bench)
      tools/need build valgrind
      bench/check.sh
      ;;
    *)
      echo "check.sh: no stage '$1'; there are: $stages" >&2
      exit 2
      ;;
  esac
}

# shellcheck disable=SC2086 # one word for each stage
case ${1-} in
  '') set -- dev ;;
  all) set -- $stages ;;
  list) printf '%s\n' $stages; exit ;;
esac

for stage; do
  trap 'echo "check.sh: $stage failed" >&2' EXIT
  begin=$(date +%s)
  echo "== $stage"
  run_stage "$stage"
  echo "== $stage: passed in $(($(date +%s) - begin)) s"
done
trap - EXIT
