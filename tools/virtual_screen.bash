# SPDX-License-Identifier: GPL-3.0-or-later
# What the scripts share that drive the editor with real keys on a virtual display of its own. To be sourced, with
# `program` and `failed_screenshot` set. Settings and data are private to the run, so that nothing of the user's is
# touched. Gives: work (a directory that goes at the end), await, fail, in_front, has_ended, start_screen, start_editor.

work=$(mktemp -d)
editor=
started=()
unset DISPLAY

finish() {
    for process in "${started[@]}"; do
        kill "$process" 2> /dev/null || true
    done
    wait
    rm -rf "$work"
}
trap finish EXIT

fail() {
    echo "Failed: $1" >&2
    if [ -n "${DISPLAY:-}" ] && import -silent -window root "$failed_screenshot" 2> /dev/null; then
        echo "The screen at that moment: $failed_screenshot" >&2
    fi
    [ ! -s "${page:-}" ] || { echo "The page:" && cat "$page"; } >&2
    [ ! -s "$work/editor.log" ] || { echo "The editor said:" && tail -n 20 "$work/editor.log"; } >&2
    exit 1
}

# await WHAT COMMAND...: the command must succeed within a minute, while the editor runs.
await() {
    local what=$1 end=$((SECONDS + 60))
    shift
    until "$@" > /dev/null 2>&1; do
        if [ "$SECONDS" -gt "$end" ]; then
            fail "$what"
        elif [ -n "$editor" ] && ! kill -0 "$editor" 2> /dev/null; then
            # What it did as its last act counts.
            "$@" > /dev/null 2>&1 && return
            fail "$what; the editor has ended"
        fi
        sleep 0.1
    done
}

has_ended() {
    ! kill -0 "$1"
}

# in_front TITLE: whether the window with the keyboard has a title that begins so.
in_front() {
    [[ "$(xdotool getactivewindow getwindowname)" == "$1"* ]]
}

# -noreset: otherwise the server begins anew whenever the last program leaves it, as each question of `await` does, and
# throws out a window manager that is just coming. -r: no key repeats itself, however late it is let go.
start_screen() {
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset -r 3> "$work/display" 2> /dev/null &
    started+=($!)
    await "the virtual display did not start" test -s "$work/display"
    DISPLAY=":$(cat "$work/display")"
    export DISPLAY
    # A clean environment: no desktop's dialogs and no settings of the user's. Programs of the desktop may be put
    # into bin.
    mkdir -m 700 "$work/home" "$work/runtime" "$work/bin"
    private=(env -i PATH="$work/bin:$PATH" HOME="$work/home" XDG_RUNTIME_DIR="$work/runtime"
        XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" XDG_CACHE_HOME="$work/cache"
        XDG_STATE_HOME="$work/state" LANG=C.UTF-8 DISPLAY="$DISPLAY" QT_QPA_PLATFORM=xcb)
    "${private[@]}" openbox > /dev/null 2>&1 &
    started+=($!)
    await "the window manager did not start" xdotool get_num_desktops
}

# Starts the editor for a user who has never started it, and waits for its main window.
start_editor() {
    "${private[@]}" "$program" > "$work/editor.log" 2>&1 &
    editor=$!
    started+=("$editor")
    await "the greeting of the first start did not appear" in_front "First time user"
    xdotool key Return
    await "the main window did not appear" in_front "Kelvor"
}

# open_page PATH: opens a file by the dialog.
open_page() {
    xdotool key ctrl+o
    await "Ctrl+O did not show the file dialog" in_front "Open HTML file"
    xdotool type --delay 20 "$1"
    xdotool key Return
    await "the file dialog did not close" in_front "Kelvor"
}
