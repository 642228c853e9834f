# Run as root in a bare system made for it: /tmp/varnelgraph.deb is installed, used and purged; nothing may
# stay. Ends with 77 where what it needs can't be fetched.
say() { echo "  $*"; }
fail() {
    echo "  failed: $*" >&2
    exit 1
}
is() { [ "$2" = "$3" ] || fail "$1: '$2' instead of '$3'"; }

# The files of the system, without what changes by itself.
listing() {
    set -- /proc /sys /dev /tmp /run /var/log /var/cache /var/lib/dpkg /var/lib/apt /home /root
    find / -xdev | sort | grep -vE "^($(echo "$*" | tr ' ' '|'))(/|$)"
}
logged() { "$@" >>/tmp/apt.log 2>&1 || { cat /tmp/apt.log; fail "$*"; }; }
fetch="apt-get -q -o Acquire::Retries=3 install -y --no-install-recommends"
install() {
    logged $fetch --simulate "$@"
    $fetch --download-only "$@" >>/tmp/apt.log 2>&1 || { tail -n 3 /tmp/apt.log; exit 77; }
    logged $fetch "$@"
}
purge() { logged dpkg --purge varnelgraph; }
as_somebody() { su somebody -c "cd; export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/tmp/runtime; $1"; }

export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8
useradd --create-home somebody
home=$(getent passwd somebody | cut -d: -f6)
mkdir -m 700 /tmp/runtime
chown somebody: /tmp/runtime

# What the package needs goes in first, so that it can be told what the package itself leaves.
install shared-mime-info xdg-utils libfile-mimeinfo-perl desktop-file-utils
install /tmp/varnelgraph.deb
purge
listing >/tmp/before
install /tmp/varnelgraph.deb
is "its own word" "$(varnelgraph --version)" "VarnelGraph V$(dpkg-query -W -f '${Version}' varnelgraph)"

printf '5\nc\n2\n0 8.0 1.5 25.0 0\n5 8.1 1.5 25.0 2\n10 8.2 1.5 25.0 4\n' >"$home/pack.acp"
cp "$home/pack.acp" "$home/old.abp"
as_somebody "varnelgraph --export-csv pack.csv pack.acp && varnelgraph --render pack.png pack.acp"
is "rows of the table" "$(wc -l <"$home/pack.csv")" 4
[ -s "$home/pack.png" ] || fail "no picture"
say "a recording became a table and a picture"

type=application/x-varnelgraph
is "type of pack.acp" "$(as_somebody 'xdg-mime query filetype pack.acp')" $type-recording
is "type of old.abp" "$(as_somebody 'xdg-mime query filetype old.abp')" $type-balancer
is "who opens it" "$(as_somebody "xdg-mime query default $type-recording")" varnelgraph.desktop
say "the system knows both types"

# As the rule would: a device on COM1, recorded for some seconds.
[ -r /usr/lib/udev/rules.d/70-varnelgraph.rules ] || fail "no rule for ports"
[ -x /usr/lib/udev/varnelgraph-port-number ] || fail "no helper of the rule"
mkdir -p /var/lib/varnelgraph
echo "1 serial x" >/var/lib/varnelgraph/ports
cat >/tmp/record.sh <<'TEXT'
mkdir -p .config/VarnelGraph
printf '[General]\nports=COM1\n' >.config/VarnelGraph/VarnelGraph.ini
export VARNEL_PORT_DIR=/tmp/runtime
/tmp/varnelsim --quiet --speed 20 --dir $VARNEL_PORT_DIR --device COM1:varnel3,cells=6,balance </dev/null &
device=$!
while [ ! -e /tmp/runtime/COM1 ] && kill -0 $device; do sleep 0.1; done
varnelgraph >/tmp/runtime/program.log 2>&1 &
program=$!
for _ in $(seq 60); do
    sleep 1
    [ "$(cat $(find .local -name '*.acp') /dev/null | wc -l)" -lt 20 ] || break
done
kill $program $device
wait
TEXT
as_somebody "sh /tmp/record.sh"
lines=$(find "$home/.local" -name '*.acp' -exec cat {} + | wc -l)
[ "$lines" -ge 20 ] || { cat /tmp/runtime/program.log; fail "$lines lines of a device recorded"; }
say "$lines lines of a simulated device were recorded"
as_somebody "varnelgraph --logbook-csv logbook.csv"
[ "$(wc -l <"$home/logbook.csv")" -ge 2 ] || fail "no recording in the logbook"
[ -n "$(find "$home/.local" -name logbook.sqlite)" ] || fail "no file of the logbook"
say "the logbook has them"

purge
listing >/tmp/after
diff /tmp/before /tmp/after || fail "something stayed"
[ -s "$home/pack.acp" ] || fail "the user's own files are gone"
say "it was purged and left nothing but the user's files"
