#!/bin/sh
# The packages on a fresh machine (Debian 12), as root: tour.sh FOLDER [PICTURES] installs those of FOLDER with all that
# they depend on, works them, removes them and purges them, and shows what is left each time. The pictures that are taken
# are put into PICTURES, if that is given.
set -eu
if [ $# -lt 1 ] || [ $# -gt 2 ] || [ "$(id -u)" -ne 0 ]; then
    echo "usage, as root: tour.sh FOLDER_OF_PACKAGES [PICTURES]" >&2
    exit 2
fi
packages=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
chmod 755 "$work"
trap 'rm -rf "$work"' EXIT
export DEBIAN_FRONTEND=noninteractive HOME="$work/home"
names="hxscannerctrls hxscannerctrls-dev hxscannerctrls-tools hxscannerctrls-host"

left() {
    find /usr /etc /var/lib -iname '*hxscanner*' -o -iname '*hxctl*' -o -iname '*hxhost*' -o -iname '*hxregister*' \
        -o -name '*libhx*' -o -iname '*orvel*' -o -path '*/orvel-hx/*' -o -path '*/Orvel/*'
}

echo "== Installing"
apt-get update -q
apt-get install -qy --no-install-recommends "$packages"/hxscannerctrls*.deb

echo "== Working, as root and then as somebody who may not write the machine's registry"
sh "$here/try_installed.sh" "$work"
if [ $# -eq 2 ]; then
    mkdir -p "$2"
    cp "$work"/*.png "$2"
fi
mkdir "$work/pictures"
chown nobody "$work/pictures"
setpriv --reuid nobody --clear-groups env HOME="$work/pictures" sh "$here/try_installed.sh" "$work/pictures" >/dev/null
echo "The same as nobody: done"

if command -v g++ >/dev/null; then
    echo "== A program that is built against the packages, and creates an object of each class"
    g++ -std=c++20 -I/usr/include/hxscannerctrls "$here/create_classes.cpp" -lhxplatform -o "$work/create_classes"
    "$work/create_classes"
fi

echo "== Removing; left until the purge:"
apt-get remove -qy $names >/dev/null
left
echo "== Purging; left:"
apt-get purge -qy hxscannerctrls >/dev/null
if [ -n "$(left)" ]; then
    left
    exit 1
fi
echo "nothing"
