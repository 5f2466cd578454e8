#!/usr/bin/env bash
# clean_root_test.sh BUILD WORK: makes the packages of a build, compares what they hold with the lists beside this script,
# and installs them into a root that has nothing but what they depend on: there they are worked, removed and purged. WORK
# is emptied. A difference to a list is a failure: what is new in a package belongs into its list, too. With
# HX_UPDATE_LISTS=1 the lists are written instead, to be looked at.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
packaging=$here/../../packaging
build=$1 work=$2
root=$work/root
packages=(hxscannerctrls hxscannerctrls-dev hxscannerctrls-tools hxscannerctrls-host)
unset HX_REGISTRY HX_DATA
export LC_ALL=C PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin

# Scripts of packages run in the root, which takes an administrator, or somebody who is one in a world of their own.
if ! chroot / true 2>/dev/null; then
    if [ -z "${HX_IS_UNSHARED:-}" ] && unshare -r chroot / true 2>/dev/null; then
        HX_IS_UNSHARED=1 exec unshare -r "$0" "$@"
    fi
    echo "SKIPPED: neither chroot nor user namespaces are allowed here"
    exit 77
fi

# Compares standard input with a list.
expect() {
    [ -z "${HX_UPDATE_LISTS:-}" ] || { cat >"$here/$1.list"; return; }
    diff -u --label "expected: $1" --label "found: $1" "$here/$1.list" - || { echo "FAILED: $1" >&2; exit 1; }
}

make_packages() {
    # Packed as quickly as can be.
    cpack --config "$build/CPackConfig.cmake" -B "$work/packages" -D CPACK_DEBIAN_COMPRESSION_TYPE=none \
        >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log" >&2; exit 1; }
    version=$(dpkg-deb -f "$work"/packages/hxscannerctrls_*.deb Version)
    libdir=$(dpkg-deb -c "$work"/packages/hxscannerctrls_*.deb | sed -n 's|.* \./\(.*\)/libhxplatform.so.4 .*|\1|p')
}

deb() { echo "$work/packages/$1"_*.deb; }

# What a package depends on, and its files with their modes; of public headers only that they are such.
compare_contents() {
    local package
    for package in "${packages[@]}"; do
        {
            dpkg-deb -f "$(deb "$package")" Depends | sed 's/, /\n/g' | sed 's/^/depends /; s/ (>=.*//'
            dpkg-deb -c "$(deb "$package")" | awk '{ print $1, $2, $6, $7, $8 }' | sed 's/ *$//' |
                grep -vE '^(drwxr-xr-x|-rw-r--r--) root/root \./usr/include/hxscannerctrls/((hxapi|platform)/.*(\.h|/))?$'
        } | sed "s|$version|VERSION|g; s|$libdir|LIBDIR|g; s|-> ../${libdir#usr/}/|-> ../LIB/|" | grep -vxF 'drwxr-xr-x root/root ./usr/lib/' | expect "$package"
    done
}

# A program or library of this machine with all that it needs, without what the packages bring.
copy_with_libraries() {
    { printf '%s\n' "$@"; ldd "$@" 2>/dev/null | sed -n 's/.*=> //; s/^[[:space:]]*\(\/[^ ]*\) (0x.*/\1/p'; } |
        grep -v "^$build/" | sort -u | while read -r file; do
        mkdir -p "$root$(dirname "$file")"
        cp -L "$file" "$root$file"
    done
}

make_root() {
    mkdir -p "$root"/{usr/{bin,sbin,lib,lib64},etc,dev,tmp,home,var/{cache,lib/dpkg/{info,updates,triggers}}}
    local folder
    for folder in bin sbin lib lib64; do ln -s "usr/$folder" "$root/$folder"; done
    mknod -m 666 "$root/dev/null" c 1 3 2>/dev/null || : >"$root/dev/null"

    copy_with_libraries /bin/sh "$(command -v rm)" "$(command -v rmdir)"
    copy_with_libraries "$build"/bin/{hxctl,hxhost,hxregister,HXScannerCtrls.so,HXPreview.so,HXSimulator.so,libhxplatform_qt.so}
    local gui
    gui=$(ldd "$build/bin/libhxplatform_qt.so" | sed -n 's/.*=> \(.*\)\/libQt6Gui.*/\1/p')
    copy_with_libraries "$gui/qt6/plugins/platforms/libqoffscreen.so"
    mkdir -p "$root/usr/share/fonts/truetype"
    cp -r /etc/fonts "$root/etc"
    cp -r /usr/share/fontconfig "$root/usr/share"
    cp -r /usr/share/fonts/truetype/dejavu "$root/usr/share/fonts/truetype"
    cp "$build/bin/create_classes" "$packaging/try_installed.sh" "$root/tmp"

    # Only what the packages name counts as installed: that is how this machine has it.
    local name
    for name in $(for name in "${packages[@]}"; do dpkg-deb -f "$(deb "$name")" Depends; done |
        sed 's/ *([^)]*)//g; s/,/\n/g' | grep -v hxscannerctrls | sort -u); do
        dpkg-query -s "$name" | sed '/^Conffiles:/,/^[^ ]/{/^Conffiles:/d; /^ /d}'
        echo
        : >"$root/var/lib/dpkg/info/$name.list"
        : >"$root/var/lib/dpkg/info/$name:$(dpkg --print-architecture).list"
    done >"$root/var/lib/dpkg/status"
}

run_dpkg() {
    dpkg --root="$root" --log=/dev/null "$@" >"$work/dpkg.log" 2>&1 || { cat "$work/dpkg.log" >&2; exit 1; }
}

in_root() { env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/home "$@"; }

files() { (cd "$root" && find . -path ./var/lib/dpkg -prune -o -path ./var/cache/fontconfig -prune -o -print | sort); }

# The files that are there beside those of the empty root; times are the same for everybody.
left() { comm -13 "$work/empty" <(files) | sed -E 's/[0-9]{8}_[0-9]{6}/TIME/' | uniq; }

store() { HX_REGISTRY=$root/var/lib/orvel-hx HX_DATA=$work/data "$build/bin/hxctl" classes --tree --all; }

rm -rf "$work"
mkdir -p "$work"
make_packages
compare_contents
make_root
files >"$work/empty"

# Installed, and installed anew; then nothing but the packages is there beside the registry.
run_dpkg -i "$work"/packages/*.deb
run_dpkg -i "$(deb hxscannerctrls)"
in_root chroot "$root" /tmp/create_classes | expect classes
in_root chroot "$root" sh /tmp/try_installed.sh /tmp >"$work/tried.log" 2>&1 || { cat "$work/tried.log" >&2; exit 1; }

run_dpkg -r "${packages[@]}"
rm -rf "$root"/home/.[!.]* "$root"/tmp/{*.png,runtime-*}  # what belongs to the user
left | expect removed
store | expect removed_registry
grep -q LogOutputFolder "$root"/var/lib/orvel-hx/machine.registry*
run_dpkg -P "${packages[@]}"
left | expect purged

# A registry that is damaged keeps nobody from removing the packages; logs of other modules outlive them.
run_dpkg -i "$(deb hxscannerctrls)"
printf 'no store' >"$root/var/lib/orvel-hx/machine.registry"
rm -f "$root"/var/lib/orvel-hx/machine.registry-*
mkdir -p "$root/var/lib/Orvel/Logs"
: >"$root/var/lib/Orvel/Logs/Other_TIME.log"
run_dpkg -P hxscannerctrls
left | expect purged_beside_others
