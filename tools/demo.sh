# Part of ./dev: the demonstration. Simulated devices on pseudo-terminals and the program listening on them,
# in settings and data folders of its own.

# Starts the devices; they write their links into $1/ports. Sets devices_pid.
start_devices() {
    local charger=mode=charge,chemistry=LiPo,cells=6,capacity=5000,current=3000,balance,weak=4,ri=1
    build/dev/tools/simulator/varnelsim --quiet --speed 60 --dir "$1/ports" \
        --device "COM1:varnel3,$charger" \
        --device COM2:varnel2plus,mode=discharge,chemistry=LiIo,cells=3,capacity=2600,current=1500 \
        --device COM3:tandor,chemistry=LiPo,cells=12,capacity=3300 </dev/null &
    devices_pid=$!
    for _ in $(seq 50); do
        [ -e "$1/ports/COM3" ] && return 0
        kill -0 "$devices_pid" 2>/dev/null || break
        sleep 0.1
    done
    fail "the simulated devices did not start"
}

# The program's settings: the three ports are ticked.
write_settings() {
    mkdir -p "$1"/{config/VarnelGraph,data,cache,ports,tmp}
    mkdir -m 700 "$1/runtime"
    printf '[General]\nports=COM1, COM2, COM3\nsendTime=true\n' >"$1/config/VarnelGraph/VarnelGraph.ini"
}

# Becomes the program in the demonstration's folders: call it in a shell of its own. The folder for temporary
# files keeps it apart from a program that the user has running. The runtime folder stays the session's where
# there is one: the sound server and Wayland are found through it.
become_program() {
    export XDG_CONFIG_HOME=$demo_folder/config XDG_DATA_HOME=$demo_folder/data
    export XDG_CACHE_HOME=$demo_folder/cache XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$demo_folder/runtime}
    export TMPDIR=$demo_folder/tmp VARNEL_PORT_DIR=$demo_folder/ports
    exec build/dev/src/varnelgraph "$@"
}

stop() { [ -z "${1:-}" ] || { kill "$1" 2>/dev/null && wait "$1" 2>/dev/null; } || true; }

leave_demo() {
    stop "${program_pid:-}"
    stop "${devices_pid:-}"
    stop "${display_pid:-}"
    rm -rf "$demo_folder"
}

# Xvfb on a free display; sets display_pid and DISPLAY.
start_display() {
    local number=$demo_folder/display
    mkfifo "$number"
    Xvfb -displayfd 3 -screen 0 1400x900x24 -nolisten tcp 3>"$number" >"$demo_folder/xvfb.log" 2>&1 &
    display_pid=$!
    local display
    read -r -t 20 display <"$number" || { cat "$demo_folder/xvfb.log" >&2; fail "Xvfb did not start"; }
    export DISPLAY=:$display
}

# Each device has a recording that grows: the journals of the three have lines. Fails with what is there.
check_recordings() {
    local recorded
    recorded=$(find "$demo_folder/data" -name '*.acp' -size +1 -print | wc -l)
    [ "$recorded" = 3 ] || {
        find "$demo_folder/data" -type f -exec ls -l {} + >&2
        fail "$recorded of the three devices are being recorded"
    }
}

# More than a blank screen has been seen.
check_picture() {
    local colours
    colours=$(identify -format %k "$1") || fail "there is no screenshot"
    [ "$colours" -gt 50 ] || fail "the screenshot $1 shows no window"
}

# As on a screen, for some 20 s; leaves a picture behind. Fails where something of it does not work.
demo_headless() {
    need headless
    local seconds=${DEMO_SECONDS:-20} picture=$root/build/demo.png
    say "there is no display: the same under Xvfb for $seconds s"
    rm -f "$picture"
    start_display
    QT_QPA_PLATFORM=xcb become_program -qwindowgeometry 1400x900+0+0 &
    program_pid=$!
    sleep "$seconds"
    kill -0 "$program_pid" 2>/dev/null || fail "the program has left early"
    kill -0 "$devices_pid" 2>/dev/null || fail "the simulated devices have left early"
    import -display "$DISPLAY" -window root "$picture"
    check_picture "$picture"
    check_recordings
    say "screenshot: $picture"
}

# True where a window can be opened on $DISPLAY or the Wayland display.
has_display() { [ -n "${WAYLAND_DISPLAY:-}" ] || [ -n "${DISPLAY:-}" ]; }

demo() {
    demo_folder=$(mktemp -d)
    trap leave_demo EXIT
    trap 'exit 130' INT TERM
    write_settings "$demo_folder"
    say "three simulated devices at 60-fold speed"
    start_devices "$demo_folder"
    if [ "${1:-}" = --headless ] || ! has_display; then
        demo_headless
        return
    fi
    say "the program listens on them until you close its window"
    local started=$SECONDS # seconds
    (become_program) && return
    # A display that is named but can't be reached, as after su or over ssh.
    [ $((SECONDS - started)) -lt 3 ] || fail "the program ended with an error"
    demo_headless
}
