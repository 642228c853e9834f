# Sourced by ./dev: the Debian package, and whether it is as it should be.

package_version() { sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt; }

# Lays the tree out as a Debian source package and builds it; the same tree gives the same bytes.
build_package() {
    local version folder=build/package tree
    version=$(package_version)
    tree=$folder/varnelgraph-$version
    rm -rf "$tree"
    mkdir -p "$tree"
    git ls-files -z --cached --others --exclude-standard | xargs -0 cp --parents -t "$tree" --
    cp -r packaging/debian "$tree/debian"
    SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
    export SOURCE_DATE_EPOCH
    cat >"$tree/debian/changelog" <<TEXT
varnelgraph ($version) bookworm; urgency=medium

  * What is new stands in CHANGELOG.md.

 -- $(sed -n 's/^Maintainer: //p' packaging/debian/control)  $(date -R -u -d "@$SOURCE_DATE_EPOCH")
TEXT
    say "building the package; the output is in $folder/build.log"
    (
        cd "$tree"
        if use_ccache; then
            export CCACHE_DIR=${CCACHE_DIR:-$(ccache --get-config cache_dir)} PATH=/usr/lib/ccache:$PATH
        fi
        DEB_BUILD_OPTIONS="parallel=$jobs" dpkg-buildpackage -b -us -uc
    ) >"$folder/build.log" 2>&1 || {
        tail -n 40 "$folder/build.log" >&2
        fail "the package could not be built"
    }
    package=$root/$folder/varnelgraph_${version}_$(dpkg --print-architecture).deb
    say "$package"
}

check_texts() {
    say "checking the package"
    lintian --fail-on error,warning --show-overrides "${package%.deb}.changes" ||
        fail "lintian has complaints"
    appstreamcli validate --no-net packaging/varnelgraph.metainfo.xml || fail "the metadata are not valid"
    desktop-file-validate packaging/varnelgraph.desktop || fail "the desktop entry is not valid"
    xmllint --noout packaging/varnelgraph-mime.xml || fail "the file types are not valid"
    local complaints
    complaints=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -Tutf8 -Z -l packaging/varnelgraph.1 \
        2>&1 >/dev/null)
    [ -z "$complaints" ] || fail "the manual page: $complaints"
}

check_sameness() {
    local before
    before=$(sha256sum <"$package")
    build_package
    [ "$before" = "$(sha256sum <"$package")" ] || fail "a second build has given other bytes"
    say "a second build gives the same bytes"
}

# In a Debian of the smallest size, made for this and removed: does all of it come, work and go?
check_bare() {
    [ "$(id -u)" = 0 ] || { say "not tried in a bare system: that needs root"; return 0; }
    local bare release sources
    bare=$(mktemp -d)
    chmod 755 "$bare"
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    sources=$(find /etc/apt -name '*.sources' -o -name sources.list)
    if ! mmdebstrap --variant=apt --skip=cleanup/apt/lists "$release" "$bare/root" $sources \
        >"$bare/log" 2>&1; then
        say "not tried in a bare system: none can be made here ($(tail -n 1 "$bare/log"))"
        rm -rf "$bare"
        return 0
    fi
    cp "$package" "$bare/root/tmp/varnelgraph.deb"
    cp "$(find build/dev/tools -name varnelsim -type f)" tools/trypackage.sh "$bare/root/tmp/"
    say "trying the package in a bare system"
    local outcome=0
    # what is mounted goes with the name space
    unshare --mount sh -ec '
        mount -t proc proc "$1/proc"
        mount -t devpts -o newinstance,ptmxmode=0666 devpts "$1/dev/pts"
        ln -sf pts/ptmx "$1/dev/ptmx"
        chroot "$1" sh -e /tmp/trypackage.sh' try "$bare/root" || outcome=1
    rm -rf "$bare"
    [ $outcome = 0 ] || fail "the package does not do in a bare system"
}

check_package() {
    check_texts
    check_sameness
    check_bare
}
