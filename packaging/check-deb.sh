#!/usr/bin/env bash
# Checks the Debian package that build-deb.sh built: installs it into an empty root, flies as an
# ordinary user, removes it, and looks for what is left. Run it as root.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
install_packages "the tools that look at a Debian package" lintian desktop-file-utils man-db \
  dpkg-dev systemd gzip util-linux

package=$(ls -t build/deb/vorlent_*.deb | head -1)
work=$(mktemp -d)
chmod 755 "$work"
started=()
trap 'kill "${started[@]}" 2>/dev/null || :; wait; rm -rf "$work"' EXIT
stage() { printf '== %s\n' "$1"; }
fail() { echo "$1" >&2; exit 1; }

# The address stands for nobody, and no licence has been chosen yet.
stage "Lintian"
lintian --allow-root --fail-on error,warning "$package" \
  --suppress-tags bogus-mail-host,bogus-mail-host-in-debian-changelog

stage "Installation into an empty root"
root=$work/root
mkdir -p "$root"/var/lib/dpkg/{info,updates}
touch "$root"/var/lib/dpkg/{status,available}
dpkg_there() { dpkg --root="$root" --force-depends "$@" >/dev/null 2>"$work/dpkg.txt" ||
  fail "$(cat "$work/dpkg.txt")"; }
dpkg_there --install "$package"
for page in "$root"/usr/share/man/man1/*.gz; do
  said=$(man --warnings -l "$page" 2>&1 >/dev/null)
  [ -z "$said" ] || fail "$page: $said"
done
desktop-file-validate "$root"/usr/share/applications/vorlent.desktop
sed "s|=/usr|=$root/usr|" "$root"/usr/lib/systemd/user/vorlentd.service >"$work/vorlentd.service"
XDG_RUNTIME_DIR=$work systemd-analyze --user --man=no verify "$work/vorlentd.service"

stage "A flight as an ordinary user"
mkdir "$work/home"
chown nobody "$work/home"
as_user() {
  exec env -i HOME="$work/home" PATH=/usr/bin:/bin VORLENT_BUS="$work/home/bus" \
    setpriv --reuid nobody --regid nogroup --clear-groups "$@"
}
# wait_for FILE LINE
wait_for() {
  local tenths
  for ((tenths = 0; tenths < 300; tenths++)); do
    grep -qsx -- "$2" "$1" && return 0
    sleep 0.1
  done
  fail "no \"$2\" in: $(cat "$1")"
}
as_user "$root/usr/bin/vorlent-sim" >"$work/sim.txt" 2>&1 &
started+=($!)
wait_for "$work/sim.txt" ready
own=$work/home/.local/share/vorlent
sed -i 's/^;LocalIp=.*/LocalIp=127.0.0.1/' "$own/Vorlent.ini"
as_user "$root/usr/bin/vorlentd" </dev/null >"$work/server.txt" 2>&1 &
started+=($!)
wait_for "$work/server.txt" "1| OK"
(as_user "$root/usr/bin/vorlent-display" 127.0.0.1 --print) >"$work/record.txt"
grep -q AircraftAltitude "$work/record.txt" || fail "no record: $(cat "$work/record.txt")"
(as_user "$root/usr/bin/vorlent-plan" "$own/Routes/varnholt-westerleigh.fms" --print) >"$work/plan.txt"
grep -q 'T/D' "$work/plan.txt" || fail "no plan: $(cat "$work/plan.txt")"
for helper in share mdb zip recorder; do
  "$root/usr/libexec/vorlent/vorlent-$helper" --version >/dev/null || fail "vorlent-$helper does not run"
done
kill "${started[1]}"
wait "${started[1]}" || fail "the server ended with $?: $(cat "$work/server.txt")"

stage "Removal"
dpkg_there --purge vorlent
left=$(find "$root" -path "$root/var" -prune -o -type f -print)
[ -z "$left" ] || fail "left behind: $left"
[ -s "$own/Vorlent.ini" ] || fail "the user's own files are gone"
