#!/usr/bin/env bash
# walk_variants.sh PROGRAM: a user with a keyboard alone saves, loads and deletes documents of the example `variants`,
# on a display of its own with a window manager. The archive lies beside the program.
set -euo pipefail
program=$1
archive=$(dirname "$program")/Archive
rm -rf "$archive"
work=$(mktemp -d)
export HOME=$work XDG_RUNTIME_DIR=$work QT_QPA_PLATFORM=xcb

fail() {
    echo "$*" >&2
    exit 1
}

Xvfb -displayfd 3 -nolisten tcp 3>"$work/display" 2>/dev/null &
jobs_of_ours=$!
trap 'kill $jobs_of_ours 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT
until [[ -s $work/display ]]; do sleep 0.02; done
DISPLAY=:$(<"$work/display")
export DISPLAY
openbox >/dev/null 2>&1 &
jobs_of_ours+=" $!"
for _ in $(seq 10); do # it is ready when it gives a window the keyboard
    [[ $(timeout 1 xev -event focus 2>/dev/null || true) == *FocusIn* ]] && break
done

# Waits until a window of that title has the keyboard and nothing else takes it for a while.
at() {
    local seen=0 active
    for _ in $(seq 500); do
        active=$(xdotool getwindowfocus getwindowname 2>/dev/null) || active=
        [[ $active == "$1" ]] && seen=$((seen + 1)) || seen=0
        [[ $seen == 5 ]] && return
        sleep 0.02
    done
    fail "'$active' has the keyboard where '$1' was waited for"
}

press() {
    for key in "$@"; do xdotool key --clearmodifiers "$key"; done
}

# save_as NAME KEYS...: after the keys, which choose another line. One question is to be answered with yes: whether to
# save without a comment, or over another variant.
save_as() {
    press ctrl+a
    at "Save Base Variant As"
    press "${@:2}" ctrl+a # the old name is replaced
    xdotool type "$1"
    press Return # "Save" is the default
    at "Save Variant"
    press alt+y
}

saved_as() { at "PS-cyclohexane ($1) - Solutions"; }

# length TITLE VALUE: of the chain, in a file of the archive: behind a header of 290 bytes and no comment. A save
# without a dialog takes a moment.
length() {
    local value
    for _ in $(seq 100); do
        value=$(od -An -td4 -j290 -N4 "$archive/$1.sol" | tr -d ' ')
        [[ $value == "$2" ]] && return || sleep 0.02
    done
    fail "$1 has length $value instead of $2"
}

"$program" &
program_id=$!
saved_as -
save_as first
saved_as 1
press ctrl+l
save_as second
saved_as 2
press ctrl+l
save_as third
saved_as 3
length bas00001 1000
length bas00002 2000
length bas00003 4000

press ctrl+l ctrl+s # into its own file, without a question
length bas00003 8000

press ctrl+k ctrl+l ctrl+l ctrl+b ctrl+l ctrl+s # 8000 is kept, 32000, back to 8000, 16000
length bas00003 16000

# Over the second: Tab leads from the name to the list, whose last line, the free one, is chosen.
save_as again Tab Up Up Shift+Tab
saved_as 2
length bas00002 16000

press ctrl+o
at "Select Base"
press Return
at "Load Base Variant"
press Home Return
saved_as 1
length bas00001 1000
press ctrl+l # is it 2000 that is saved as the fourth?
save_as fourth
saved_as 4
length bas00004 2000

press ctrl+d
at "Delete Base"
press Return
at "Delete Base Variant"
press End Tab Tab Tab
press space
at "Delete Variant" # which one works with
press alt+y
at "PS-cyclohexane (-)* - Solutions"
[[ ! -e $archive/bas00004.sol ]] || fail "the variant is still there"

press ctrl+q
at "Solutions" # save it?
press alt+n
wait $program_id
[[ $(echo "$archive"/*) == "$archive/bas00001.sol $archive/bas00002.sol $archive/bas00003.sol" ]] || fail "other files"
