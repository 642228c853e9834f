#!/bin/bash
# Whether src/ compiles for Windows: types only, with Debian's cross compiler and this machine's
# Qt and Qwt headers. Nothing is linked, since Debian has no Qt for Windows. Where VARNEL_WINDOWS_PREFIX
# names the folders of one, the program is built with it, too, in build/windows, and packed. Called by
# ./dev windows, which sees to packages and build/dev.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
headers=$(pkg-config --variable=includedir Qt5Core) # ends in /qt5
options=(-std=c++17 -fsyntax-only -Wall -Wextra -DUNICODE -D_UNICODE "-DVARNELGRAPH_VERSION=\"0\"" -I src
    -I build/dev/src/varnel_gui_autogen/include -isystem /usr/include/qwt -isystem "$headers")
for module in Core Gui Widgets Network SerialPort Multimedia PrintSupport Sql Svg Concurrent; do
    options+=(-isystem "$headers/Qt$module")
done
find src -name '*.cpp' ! -name '*_unix.cpp' | sort |
    xargs -P "${JOBS:-$(nproc)}" -n 4 x86_64-w64-mingw32-g++-posix "${options[@]}" ||
    { echo "windows: FAILED"; exit 1; }
echo "windows: $(find src -name '*.cpp' ! -name '*_unix.cpp' | wc -l) sources, no fault"
[ -n "${VARNEL_WINDOWS_PREFIX:-}" ] || exit 0

guide=$(command -v pandoc >/dev/null && echo ON || echo OFF)
host_tools=$(qmake -qt=qt5 -query QT_HOST_BINS 2>/dev/null || echo /usr/lib/qt5/bin)
cmake --build build/dev --target rendericons &&
    cmake -G Ninja -S . -B build/windows --toolchain packaging/windows/mingw64.cmake \
        -DCMAKE_BUILD_TYPE=Release -DVARNEL_TESTS=OFF "-DVARNEL_GUIDE=$guide" \
        "-DVARNEL_WINDOWS_PREFIX=$VARNEL_WINDOWS_PREFIX" \
        "-DVARNEL_HOST_TOOLS=$PWD/build/dev;$host_tools" &&
    cmake --build build/windows -j "${JOBS:-$(nproc)}" || { echo "windows: FAILED"; exit 1; }
command -v makensis >/dev/null || { echo "windows: built, not packed: there is no makensis"; exit 0; }
cd build/windows && cpack
