# Sourced by ./dev: the guide's pictures, made by the program from simulated devices in settings of its own.

# pictures [FOLDER [LANGUAGE]]
pictures() {
    local folder=${1:-docs/pictures} home
    mkdir -p "$folder"
    home=$(mktemp -d)
    mkdir -p "$home"/{config,data,cache,ports} && mkdir -m 700 "$home/runtime"
    say "taking pictures into $folder"
    env -u DISPLAY -u WAYLAND_DISPLAY LC_ALL=C.UTF-8 HOME="$home" XDG_CONFIG_HOME="$home/config" \
        XDG_DATA_HOME="$home/data" XDG_CACHE_HOME="$home/cache" XDG_RUNTIME_DIR="$home/runtime" \
        VARNEL_PORT_DIR="$home/ports" QT_QPA_PLATFORM=offscreen \
        QT_LOGGING_RULES='*.debug=false;qt.qpa.*=false' \
        build/dev/tools/pictures/varnelpictures "$folder" "${2:-en}" || {
        rm -rf "$home"
        fail "not all pictures could be taken"
    }
    rm -rf "$home"
}
