#!/usr/bin/env bash
# One check of an installed copy: run.sh CHECK PREFIX WORK_FOLDER
set -euo pipefail
check=$1 prefix=$2 work=$3
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$work"
mkdir -p "$work"
export LD_LIBRARY_PATH=$prefix/lib
examples=$prefix/share/doc/tessara/examples

fail() {
    echo "$*" >&2
    exit 1
}

is_png() {
    [[ $(head -c 8 "$1" | od -An -tx1 | tr -d ' \n') == 89504e470d0a1a0a ]]
}

draw_with() {
    "$1" "$work/chi.png"
    is_png "$work/chi.png" || fail "$1 drew no PNG"
}

case $check in
find_package)
    cmake -S "$here/project" -B "$work" -G Ninja -DCMAKE_PREFIX_PATH="$prefix"
    cmake --build "$work"
    unset LD_LIBRARY_PATH # the build's own run path is enough
    draw_with "$work/chi_plot"
    ;;
pkg-config)
    export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
    pkg-config --print-errors --atleast-version=0.1 tessara
    read -ra flags < <(pkg-config --cflags --libs tessara)
    "${CXX:-c++}" -std=c++20 "$here/project/chi_plot.cpp" -o "$work/chi_plot" "${flags[@]}"
    draw_with "$work/chi_plot"
    ;;
moved)
    # Everything works from another place: no file names the folder that it was installed into.
    cp -a "$prefix" "$work/moved"
    if found=$(grep -rlF "$prefix" "$work/moved"); then
        fail "files name the folder they were installed into: $found"
    fi
    "$0" find_package "$work/moved" "$work/find_package"
    "$0" pkg-config "$work/moved" "$work/pkg-config"
    ;;
headers)
    # Each header alone: it includes what it needs, all of that is installed, and none of it is Qt.
    cd "$prefix/include"
    find tessara -name '*.h' -print0 | xargs -0 -I{} -P2 \
        "${CXX:-c++}" -std=c++20 -Wall -Wextra -Wpedantic -Wshadow -Werror -I . -include {} -fsyntax-only -x c++ /dev/null
    if grep -rnE '#include *[<"]Q' .; then
        fail "a public header includes Qt"
    fi
    ;;
frame)
    # The installed example with a window, as its reader would build it, drawn without a display.
    export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
    read -ra flags < <(pkg-config --cflags --libs tessara)
    "${CXX:-c++}" -std=c++20 -Wall -Wextra "$examples/frame/Main.cpp" -o "$work/frame" "${flags[@]}"
    timeout 60 "$work/frame" --screenshot "$work/frame.png"
    is_png "$work/frame.png" || fail "the example showed no window"
    ;;
calculation)
    # The installed example with a long calculation, as its reader would build it, run to its end.
    export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
    read -ra flags < <(pkg-config --cflags --libs tessara)
    "${CXX:-c++}" -std=c++20 -O2 -Wall -Wextra "$examples/calculation/Main.cpp" -o "$work/calculation" "${flags[@]}"
    timeout 60 "$work/calculation" --screenshot "$work/chains.png"
    is_png "$work/chains.png" || fail "the example showed no result"
    ;;
variants)
    # The installed example with documents, built as its reader would and used with the keyboard.
    export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
    read -ra flags < <(pkg-config --cflags --libs tessara)
    "${CXX:-c++}" -std=c++20 -Wall -Wextra "$examples/variants/Main.cpp" -o "$work/variants" "${flags[@]}"
    timeout 200 "$here/walk_variants.sh" "$work/variants"
    ;;
documents)
    "$here/../documents/check_links.py" "$prefix/share/doc/tessara"
    # The installed data are the tree's; of the examples there is what a reader wants, not how they are built.
    diff -r "$here/../../examples/data" "$examples/data"
    [[ -s $examples/flory/model/CloudPointCurve.h && -s $examples/flory/program/Main.cpp ]] || fail "no example"
    if found=$(find "$examples" -name CMakeLists.txt -o -name tests | grep .); then
        fail "installed for nobody: $found"
    fi
    ;;
command)
    unset LD_LIBRARY_PATH
    printf 'x y\n0 0.5\n1.5 2.25\n' >"$work/data.txt"
    "$prefix/bin/tessara" --version
    "$prefix/bin/tessara" plot "$work/data.txt" -o "$work/out.png"
    is_png "$work/out.png" || fail "the command drew no PNG"
    [[ $(LC_ALL=de_DE.UTF-8 bash -c 'printf %.1f 0,5') == 0,5 ]] || fail "no locale with a decimal comma"
    "$prefix/bin/tessara" plot "$work/data.txt" -o "$work/point.svg"
    LC_ALL=de_DE.UTF-8 "$prefix/bin/tessara" plot "$work/data.txt" -o "$work/comma.svg"
    cmp "$work/point.svg" "$work/comma.svg"
    for page in "$prefix"/share/man/man1/tessara.1*; do
        [[ -s $page ]] || fail "no man page"
    done
    ;;
*)
    fail "unknown check $check"
    ;;
esac
