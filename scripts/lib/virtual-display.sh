# shellcheck shell=bash
# Starts a virtual display with a window manager, and takes pictures of its windows.
# Needs lib/common.sh and the package group `display`.

virtual_display_folder=
virtual_display_pids=()

# start_display SIZE: starts a display of this size, such as 1280x1024, under a free number, sets
# DISPLAY, and returns when the window manager is ready.
start_display() {
    trap stop_display EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    virtual_display_folder=$(mktemp -d)
    local number=$virtual_display_folder/number log=$virtual_display_folder/log

    Xvfb -displayfd 3 -screen 0 "${1}x24" -nolisten tcp 3>"$number" >"$log" 2>&1 &
    virtual_display_pids+=($!)
    repeat_until 20 grep -q . "$number" || die "the virtual display did not start: $(<"$log")"
    DISPLAY=:$(<"$number")
    export DISPLAY

    openbox --sm-disable >>"$log" 2>&1 &
    virtual_display_pids+=($!)
    # Without a window manager there is no current desktop.
    repeat_until 20 xdotool get_desktop || die "the window manager did not start: $(<"$log")"
}

# find_window NAME: prints the id of the visible window whose title is exactly NAME.
find_window() {
    local ids
    ids=$(xdotool search --onlyvisible --name "^$1\$") && head -n 1 <<<"$ids"
}

# take_window_picture NAME FILE: waits for the window with this title and saves its content.
take_window_picture() {
    repeat_until 30 find_window "$1" || die "no window with the title \"$1\" appeared"
    sleep 2 # until the program has finished its start
    import -window "$(find_window "$1")" "$2"
}

# end_program PID: asks a program to end, as a desktop does, and waits until it has ended.
end_program() {
    kill -TERM "$1"
    repeat_until 10 has_ended "$1" || die "the program did not end when asked to"
    wait "$1" || die "the program ended with code $?"
}

has_ended() {
    ! kill -0 "$1"
}

# stop_display: ends the display and all programs on it. Runs automatically when the script ends.
stop_display() {
    local pid
    for pid in "${virtual_display_pids[@]}"; do
        kill "$pid" 2>/dev/null || true
    done
    wait "${virtual_display_pids[@]}" 2>/dev/null || true
    virtual_display_pids=()
    [[ -z $virtual_display_folder ]] || rm -rf "$virtual_display_folder"
    virtual_display_folder=
}
