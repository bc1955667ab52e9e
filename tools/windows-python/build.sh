#!/usr/bin/env bash
# Cross-builds CPython 3.14 for Windows x64 with mingw-w64, to try Windows programs that embed it under Wine.
# NOTES.md says what it can do, and what it cannot.
#
#   build.sh SOURCE LIBFFI PREFIX
#
# SOURCE, LIBFFI: the source archives of CPython and libffi. PREFIX: a folder to create; it gets the layout of an installed
# Python for Windows (python.exe, python314.dll, DLLs, Lib, include, libs) and can be moved afterwards.
#
# Environment:
#   PYTHON  native Python 3.14, which freezes modules (default: python3.14)
#   WORK    build folder to create (default: PREFIX.build); may be deleted afterwards
#   JOBS    parallel jobs (default: 2)
#   STRIP   linker flag that drops symbols (default: -s; set it empty to keep them)
#   OPT     optimisation (default: -O2 -DNDEBUG). Without -DNDEBUG the interpreter checks its assertions and is up to five
#           times slower: good for finding errors in how it is used
set -euo pipefail

if (($# != 3)); then
    sed -n '2,/^set/{/^set/d;s/^# \{0,1\}//p}' "$0" >&2
    exit 2
fi
tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source=$(realpath "$1")
libffi=$(realpath "$2")
prefix=$(realpath -m "$3")
work=$(realpath -m "${WORK:-$prefix.build}")
python=${PYTHON:-python3.14}
jobs=${JOBS:-2}
compiler=x86_64-w64-mingw32-gcc-win32

die() {
    echo "build.sh: $*" >&2
    exit 1
}

command -v "$compiler" >/dev/null || die "there is no $compiler; install gcc-mingw-w64-x86-64-win32"
command -v "$python" >/dev/null || die "there is no $python; let PYTHON name a native Python 3.14"
[[ -e $("$compiler" -print-file-name=libz.a) ]] || die "there is no zlib for mingw-w64; install libz-mingw-w64-dev"
for folder in "$prefix" "$work"; do
    [[ ! -e $folder ]] || die "$folder exists already"
done

mkdir -p "$work/source" "$work/build" "$work/libffi-source"
tar -xf "$source" -C "$work/source" --strip-components=1
tar -xf "$libffi" -C "$work/libffi-source" --strip-components=1
for change in "$tools"/patches/*.patch; do
    patch -d "$work/source" -p1 -s -i "$change"
done

# The frozen modules are bytecode, so writer and reader must agree.
needed=$(sed -n 's/^#define PYC_MAGIC_NUMBER \([0-9]*\)$/\1/p' "$work/source/Include/internal/pycore_magic_number.h")
written=$("$python" -c 'import importlib.util as u; print(int.from_bytes(u.MAGIC_NUMBER[:2], "little"))')
[[ $needed == "$written" ]] || die "$python writes bytecode $written, this source needs $needed"

cd "$work/libffi-source"
./configure --host=x86_64-w64-mingw32 CC="$compiler" --disable-docs --disable-shared --enable-static \
    --prefix="$work/libffi"
make -j"$jobs"
make install

cd "$work/build"
"$python" "$tools/mksources.py" "$work/source" >sources.mk
"$compiler" -dumpspecs | sed 's/-lmsvcrt/-lucrt/' >ucrt.specs
mkdir -p "$work/source/Python/frozen_modules"
# The date in sys.version: two builds of the same source are the same.
SOURCE_DATE_EPOCH=$(stat -c %Y "$work/source/Include/patchlevel.h")
export SOURCE_DATE_EPOCH
make -s -j"$jobs" -f "$tools/windows.mk" SRC="$work/source" PYTHON="$python" TOOLS="$tools" LIBFFI="$work/libffi" \
    STRIP="${STRIP--s}" ${OPT:+"OPT=$OPT"}

mkdir -p "$prefix/libs" "$prefix/include"
cp python.exe pythonw.exe python314.dll python3.dll "$prefix/"
cp -r DLLs "$prefix/DLLs"
cp libpython314.a libpython3.a python314.def python3.def ucrt.specs "$prefix/libs/"
cp -r "$work/source/Include/." "$prefix/include/"
cp "$work/source/PC/pyconfig.h" "$prefix/include/"
cp "$work/source/LICENSE" "$prefix/LICENSE.txt"
cp -r "$work/source/Lib" "$prefix/Lib"
mkdir -p "$prefix/Lib/site-packages"
cd "$prefix/Lib"
rm -rf idlelib tkinter turtledemo turtle.py ensurepip pydoc_data test
find . -name __pycache__ -prune -exec rm -rf {} +
# Bytecode, so that nothing is written at run time and Wine starts faster.
"$python" -m compileall -q -j"$jobs" -x '(bad_|badsyntax|site-packages)' --invalidation-mode unchecked-hash \
    -s "$prefix" "$prefix/Lib"
echo "build.sh: done: $prefix ($(du -sh "$prefix" | cut -f1))"
