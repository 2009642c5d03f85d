#!/usr/bin/env bash
# debs.sh SOURCE DEB...: uses the Debian packages as a developer does, and installs and removes them in a bare Debian.
set -euo pipefail

source=$1
debs=("${@:2}")
compiler=c++
flags=
dir=$(mktemp -d)
trap 'rm -rf --one-file-system "$dir"' EXIT
source "$source/tests/consume.sh"

echo "== the packages are as Debian wants them"
if command -v lintian >/dev/null; then
    # Two libraries that belong together are one package, and CPack calls ldconfig beside the trigger.
    lintian --allow-root --fail-on warning \
        --suppress-tags package-name-doesnt-match-sonames,maintscript-calls-ldconfig "${debs[@]}"
else
    echo "skipped: there is no lintian"
fi

echo "== a consumer is built against them"
for deb in "${debs[@]}"; do
    dpkg -x "$deb" "$dir/unpacked"
done
consume installed -DCMAKE_PREFIX_PATH="$dir/unpacked/usr"
consume_by_pkg_config "$dir/unpacked/usr"

echo "== they are installed and removed"
if ! command -v debootstrap >/dev/null || [ "$(id -u)" -ne 0 ]; then
    echo "skipped: that takes debootstrap and root"
    exit
fi
root=$dir/root
# shellcheck source=/dev/null
debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root" >"$dir/debootstrap.log" ||
    { tail "$dir/debootstrap.log" && exit 1; }

# All files but those that dpkg and ldconfig keep for themselves.
files() {
    (cd "$root" && find . -path ./var/lib/dpkg -prune -o -path ./var/log -prune -o -path ./var/cache -prune -o -print | sort)
}

files >"$dir/before"
cp "${debs[@]}" "$root/tmp"
chroot "$root" sh -c 'dpkg -i /tmp/*.deb'
rm "$root"/tmp/*.deb
chroot "$root" ymsdp --version
chroot "$root" ymsdp rewrite <"$source/examples/phone-offer.sdp" | grep 'a=rtpmap:0 PCMU/8000'
chroot "$root" ldconfig -p | grep libym_sdp.so.1
chroot "$root" dpkg --purge libym-sdp1 2>/dev/null && echo "the libraries went before what needs them" && exit 1
chroot "$root" dpkg --remove ymsdp libym-sdp-dev libym-sdp1
chroot "$root" dpkg --purge ymsdp libym-sdp-dev libym-sdp1
files | diff "$dir/before" -
