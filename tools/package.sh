# Sourced by ./dev: the Debian package, and whether it is as it should be.

package_version() { sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt; }

# Lays the tree out as a Debian source package of the last commit's date. What is edited or committed later
# does not come in.
lay_out_package() {
    local version folder=$root/build/package
    version=$(package_version)
    tree=$folder/varnelgraph-$version
    package=$folder/varnelgraph_${version}_$(dpkg --print-architecture).deb
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
}

# Builds what has been laid out, from the start; the same tree gives the same bytes.
build_package() {
    local log=$root/build/package/build.log
    say "building the package; the output is in ${log#"$root"/}"
    (
        cd "$tree"
        if use_ccache; then
            export CCACHE_DIR=${CCACHE_DIR:-$(ccache --get-config cache_dir)} PATH=/usr/lib/ccache:$PATH
        fi
        DEB_BUILD_OPTIONS="parallel=$jobs" dpkg-buildpackage -b -us -uc
    ) >"$log" 2>&1 || {
        tail -n 40 "$log" >&2
        fail "the package could not be built"
    }
    say "$package"
}

check_texts() {
    say "checking the package"
    lintian --fail-on error,warning --show-overrides "${package%.deb}.changes" ||
        fail "lintian has complaints"
    appstreamcli validate --no-net "$tree"/packaging/varnelgraph.metainfo.xml ||
        fail "the metadata are not valid"
    desktop-file-validate "$tree"/packaging/varnelgraph.desktop || fail "the desktop entry is not valid"
    xmllint --noout "$tree"/packaging/varnelgraph-mime.xml || fail "the file types are not valid"
    local complaints
    complaints=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -Tutf8 -Z -l "$tree"/packaging/varnelgraph.1 \
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

# In a Debian of the smallest size, made for this and removed: does all of it come, work and go? Where none
# can be made, or nothing can be fetched, that is said and is no fault of the package.
check_bare() {
    local release sources outcome=0
    local untried="not tried in a bare system:"
    [ "$(id -u)" = 0 ] || { say "$untried that needs root"; return 0; }
    unshare --mount true 2>/dev/null || { say "$untried nothing can be mounted here"; return 0; }
    [ "$SECONDS" -le "${BARE_UNTIL:-$SECONDS}" ] || { say "$untried no time is left"; return 0; }
    bare=$(mktemp -d)
    trap 'rm -rf "$bare"' EXIT
    chmod 755 "$bare"
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    sources=$(find /etc/apt -name '*.sources' -o -name sources.list)
    say "trying the package in a bare system"
    if ! mmdebstrap --variant=apt --skip=cleanup/apt/lists "$release" "$bare/root" $sources \
        >"$bare/log" 2>&1; then
        say "$untried none can be made here ($(tail -n 1 "$bare/log"))"
        return 0
    fi
    cp "$package" "$bare/root/tmp/varnelgraph.deb"
    cp "$(find build/dev/tools -name varnelsim -type f)" "$tree/tools/trypackage.sh" "$bare/root/tmp/"
    # what is mounted goes with the name space
    unshare --mount sh -c '
        mount -t proc proc "$1/proc" && mount -t devpts -o newinstance,ptmxmode=0666 devpts "$1/dev/pts" &&
            ln -sf pts/ptmx "$1/dev/ptmx" || exit 77
        chroot "$1" sh -e /tmp/trypackage.sh' try "$bare/root" || outcome=$?
    [ $outcome != 77 ] || { say "$untried not all that it needs is to be had here"; return 0; }
    [ $outcome = 0 ] || fail "the package does not do in a bare system"
}

check_package() {
    check_texts
    check_sameness
    check_bare
}
