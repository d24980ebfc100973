#!/usr/bin/env bash
# Proves that a clone needs nothing but ./dev: makes a fresh Debian root from the apt sources of
# this machine, clones the committed state into it, and runs ./dev there without HOME.
#
#   tools/fresh_root.sh FOLDER [COMMAND...]
#
# FOLDER is made when it is missing and used again when it is there. Each COMMAND is one argument
# to ./dev with its own arguments ("test --preset release"); the default is demo, then test.
# Needs root and debootstrap. Nothing stays mounted: the commands run in mount and process
# namespaces of their own.
set -euo pipefail

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
say() { printf 'fresh_root: %s\n' "$*" >&2; }

# The site of the first source that carries this machine's Debian release.
mirror() {
  apt-get indextargets --format '$(CODENAME) $(SITE)' 'Created-By: Packages' |
    awk -v release="$1" '$1 == release { print $2; exit }'
}

# A root with what is marked essential, apt, and the apt configuration of this machine.
makeRoot() {
  local root=$1 release site file
  release=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
  site=$(mirror "$release")
  [ -n "$site" ] || { say "no apt source has $release"; return 1; }
  say "debootstrap $release from $site"
  debootstrap --variant=minbase --include=ca-certificates "$release" "$root" "$site" \
    >"$root.log" 2>&1 || { tail -n 20 "$root.log" >&2; return 1; }
  rm -rf "$root/etc/apt"
  cp -a /etc/apt "$root/etc/apt"
  for file in /etc/resolv.conf /etc/hosts; do
    [ ! -e "$file" ] || cp -L "$file" "$root$file"
  done
  touch "$root/.made"
}

cloneInto() {
  rm -rf "$1/src"
  git clone --quiet --no-hardlinks "file://$top" "$1/src"
  say "cloned $(git -C "$1/src" log -1 --format='%h %s')"
}

# runInside ROOT COMMAND: ./dev COMMAND in the root, with proxy settings and nothing else.
runInside() {
  local root=$1 command=$2 name environment=(PATH=/usr/sbin:/usr/bin:/sbin:/bin)
  for name in http_proxy https_proxy no_proxy; do
    [ -z "${!name:-}" ] || environment+=("$name=${!name}")
  done
  unshare --mount --pid --fork --kill-child -- bash -c '
    mount -t proc proc "$1/proc" && shift && exec "$@"' mounted "$root" \
    chroot "$root" env -i "${environment[@]}" bash -c "cd /src && ./dev $command" </dev/null
}

main() {
  [ $# -ge 1 ] || { sed -n '2,12s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2; exit 2; }
  local root command begin status times=()
  mkdir -p "$1"
  root=$(cd "$1" && pwd)
  shift
  [ $# -gt 0 ] || set -- demo test
  [ -e "$root/.made" ] || makeRoot "$root"
  cloneInto "$root"
  for command in "$@"; do
    begin=$SECONDS
    status=0
    runInside "$root" "$command" || status=$?
    times+=("./dev $command: $((SECONDS - begin)) s, status $status")
    [ "$status" -eq 0 ] || break
  done
  for command in "${times[@]}"; do say "$command"; done
  return "$status"
}

main "$@"
