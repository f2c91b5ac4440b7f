#!/bin/sh
# press_keys.sh MANAGER TITLE PROGRAM KEYS...: on the display of the environment, under a window manager, runs a
# program once for each KEYS and presses these (with commas between) when its window of that title has the keyboard.
# Where it does not get it, they go to whatever window has, and the output says so.
manager=$1 title=$2 program=$3
shift 3
"$manager" >/dev/null 2>&1 &
manager_id=$!
trap 'kill $manager_id 2>/dev/null; wait $manager_id 2>/dev/null' EXIT
# It is ready when it gives a window the keyboard.
tries=10
until timeout 1 xev -event focus 2>/dev/null | grep -q FocusIn || [ $tries -eq 0 ]; do
    tries=$((tries - 1))
done

# Waits until the window has the keyboard. A window manager gives it to several windows in turn while it shows them:
# it has come to rest when ten looks find it at the same.
await_keyboard() {
    tries=200
    seen=0
    while [ $seen -lt 10 ]; do
        active=$(xdotool getwindowfocus getwindowname 2>/dev/null)
        [ "$active" = "$title" ] && seen=$((seen + 1)) || seen=0
        [ $tries -eq 0 ] && echo "'$active' has the keyboard" && break
        sleep 0.02
        tries=$((tries - 1))
    done
}

for keys in "$@"; do
    timeout 30 "$program" &
    program_id=$!
    await_keyboard
    for key in $(echo "$keys" | tr ',' ' '); do
        xdotool key --clearmodifiers "$key"
    done
    wait $program_id
    [ $? -ne 124 ] || echo "the program did not end"
done
