#!/usr/bin/env bash
# scripts/check-package.sh BUILD_DIR
#
# Checks the installed program as a user gets it. Makes the Debian package with
# CPack in BUILD_DIR (a configured build folder), unpacks it into a temporary
# root with dpkg -x and checks there that:
#   - the installed tessaly-cli solves puzzle 1 of the installed collection;
#   - the launcher and the AppStream metainfo pass desktop-file-validate and
#     appstreamcli validate;
#   - the manual page of tessaly-cli is there;
#   - the installed window, run by an unprivileged user for whom the root is
#     read-only, finds the installed collection and keeps its configuration in
#     that user's home, and writes nothing under the root.
# Then installs BUILD_DIR with cmake --install into a temporary prefix and
# checks the command line there too.
#
# Prints one line per check and closes with "N passed, N failed"; exits
# non-zero when a check failed.
set -uo pipefail

if [ $# -ne 1 ]; then
  echo "usage: $0 BUILD_DIR" >&2
  exit 2
fi
build=$(cd "$1" && pwd -P) || exit 2
cd "$(dirname "$0")/.." || exit 2

source scripts/deps.sh
tessaly_install_deps || exit 1

passed=0
failed=0
# pass TEXT / fail TEXT [DETAILS-FILE]: one line per check; a failure shows
# what the failing command printed, indented.
pass() {
  echo "ok: $1"
  passed=$((passed + 1))
}
fail() {
  echo "FAIL: $1"
  if [ $# -gt 1 ] && [ -s "$2" ]; then
    sed 's/^/    /' "$2"
  fi
  failed=$((failed + 1))
}
finish() {
  echo "$passed passed, $failed failed"
  [ "$failed" -eq 0 ]
  exit
}

# The temporary folder must be reachable by the unprivileged user who runs the
# window from it: always under /tmp, whatever TMPDIR says.
tmp=$(mktemp -d /tmp/tessaly-package.XXXXXX)
chmod 755 "$tmp"
tmp=$(cd "$tmp" && pwd -P)
# The unpacked root is made read-only below: give write access back first.
trap 'chmod -R u+w "$tmp" 2>/dev/null; rm -rf "$tmp"' EXIT
log=$tmp/log

# check_cli PREFIX WHAT: the installed tessaly-cli solves puzzle 1 of the
# installed collection, run in an empty working folder (exit 0 means the grid
# ended complete and valid).
check_cli() {
  local prefix=$1 what=$2 work
  work=$(mktemp -d -p "$tmp")
  if (cd "$work" && "$prefix/bin/tessaly-cli" solve "$prefix/share/tessaly/Puzzles.sud" 1) >"$log" 2>&1; then
    pass "$what: tessaly-cli solves puzzle 1 of the installed collection"
  else
    fail "$what: tessaly-cli solves puzzle 1 of the installed collection (exit $?)" "$log"
  fi
}

# --- The Debian package -------------------------------------------------------
rm -f "$build"/tessaly_*.deb
if (cd "$build" && cpack -G DEB) >"$log" 2>&1; then
  debs=("$build"/tessaly_*.deb)
  if [ -f "${debs[0]}" ]; then
    pass "cpack -G DEB made ${debs[0]#"$build"/}"
  else
    fail "cpack -G DEB made no tessaly_*.deb" "$log"
    finish
  fi
else
  fail "cpack -G DEB" "$log"
  finish
fi
deb=${debs[0]}

root=$tmp/root
mkdir "$root"
if dpkg -x "$deb" "$root" 2>"$log"; then
  pass "dpkg -x unpacks the package"
else
  fail "dpkg -x unpacks the package" "$log"
  finish
fi
usr=$root/usr

check_cli "$usr" "package"

# desktop-file-validate has no strictness switch: it fails only on errors and
# prints warnings and hints. Any output at all counts as a failure here.
desktop=$usr/share/applications/org.tessaly.Tessaly.desktop
if [ ! -f "$desktop" ]; then
  fail "launcher ${desktop#"$root"} is installed"
elif desktop-file-validate "$desktop" >"$log" 2>&1 && [ ! -s "$log" ]; then
  pass "desktop-file-validate finds nothing to report in ${desktop#"$root"}"
else
  fail "desktop-file-validate ${desktop#"$root"}" "$log"
fi

# --strict fails on errors, warnings and infos; only pedantic hints (shown with
# --pedantic) may remain. validate-tree checks the metainfo against the
# installed tree as well (the launcher it names is there).
metainfo=$usr/share/metainfo/org.tessaly.Tessaly.metainfo.xml
if [ ! -f "$metainfo" ]; then
  fail "metainfo ${metainfo#"$root"} is installed"
else
  if appstreamcli validate --no-net --strict "$metainfo" >"$log" 2>&1; then
    pass "appstreamcli validate --strict ${metainfo#"$root"}"
  else
    fail "appstreamcli validate --strict ${metainfo#"$root"}" "$log"
  fi
  if appstreamcli validate-tree --no-net --strict "$root" >"$log" 2>&1; then
    pass "appstreamcli validate-tree --strict on the unpacked package"
  else
    fail "appstreamcli validate-tree --strict on the unpacked package" "$log"
  fi
fi

# The manual page: compressed, readable, and made from this tessaly-cli (its
# title line carries the version tessaly-cli prints).
man_page=$usr/share/man/man1/tessaly-cli.1.gz
version=$("$usr/bin/tessaly-cli" --version 2>/dev/null)
title=$(gzip -dc "$man_page" 2>/dev/null | grep -m 1 '^\.TH ')
if [ -n "$version" ] && [[ "$title" == ".TH TESSALY-CLI \"1\" "*" \"$version\" \"User Commands\"" ]]; then
  pass "manual page ${man_page#"$root"} for $version"
else
  fail "manual page ${man_page#"$root"} for '$version' (title line: '$title')"
fi

# The window, run by an unprivileged user for whom the unpacked root is
# read-only (as /usr is for a user). These checks run as root, who may write
# anywhere, so the window runs as nobody; an unprivileged caller runs it
# itself on a root it cannot write. Its home and working folder belong to that
# user; XDG_CONFIG_HOME and XDG_DATA_HOME are left unset, so the defaults under
# the home are what is checked.
chmod -R a-w "$root"
home=$tmp/home
mkdir "$home" "$home/work" "$home/runtime"
chmod 700 "$home/runtime"
as_user=()
if [ "$(id -u)" -eq 0 ]; then
  chown -R nobody:"$(id -gn nobody)" "$home"
  as_user=(runuser -u nobody --)
fi
snapshot() {
  find "$root" -printf '%p %y %m %U %s %T@\n' | sort
}
snapshot >"$tmp/before"
(cd "$home/work" && "${as_user[@]}" env -i PATH=/usr/bin:/bin LANG=C.UTF-8 HOME="$home" \
  XDG_RUNTIME_DIR="$home/runtime" QT_QPA_PLATFORM=offscreen \
  timeout 30 "$usr/bin/tessaly" --paths) >"$tmp/paths" 2>"$log"
status=$?
# The window itself, offscreen on a small laptop's screen (the offscreen
# platform's own is 800x800): it starts up on the installed collection,
# creates a puzzle (appended to the user's PuzTemp.sud), saves a picture of
# itself and quits; it fails when the tab needs more room than the screen has.
screen="$tmp/screen.json"
echo '{ "screens": [ { "name": "laptop", "x": 0, "y": 0, "width": 1366, "height": 768, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 } ] }' >"$screen"
chmod a+r "$screen"
(cd "$home/work" && "${as_user[@]}" env -i PATH=/usr/bin:/bin LANG=C.UTF-8 HOME="$home" \
  XDG_RUNTIME_DIR="$home/runtime" QT_QPA_PLATFORM="offscreen:configfile=$screen" \
  timeout 60 "$usr/bin/tessaly" --screenshot create "$home/work/window.png") >"$log.window" 2>&1
window_status=$?
snapshot >"$tmp/after"
if [ "$window_status" -eq 0 ] && [ -s "$home/work/window.png" ] &&
  [ -s "$home/.local/share/Tessaly/PuzTemp.sud" ]; then
  pass "the window starts offscreen, creates a puzzle into the user's PuzTemp.sud and quits"
else
  fail "the window starts offscreen, creates a puzzle into the user's PuzTemp.sud and quits (exit $window_status)" "$log.window"
fi
if [ "$status" -eq 0 ]; then
  pass "tessaly --paths as an unprivileged user"
else
  {
    if [ "$status" -eq 124 ]; then
      echo "stopped after 30 seconds: the window did not exit by itself"
    else
      echo "exit $status"
    fi
    echo "standard output:"
    cat "$tmp/paths"
    echo "standard error:"
    cat "$log"
  } >"$log.all"
  fail "tessaly --paths as an unprivileged user" "$log.all"
fi

# value LABEL: the rest of the line "LABEL: ..." of tessaly --paths.
value() {
  sed -n "s/^$1: //p" "$tmp/paths" | head -n 1
}
collection=$(value collection)
expected_collection="$usr/share/tessaly/Puzzles.sud (125 puzzles)"
# The path is compared as a location, so that bin/../share names the same file.
if [ -n "$collection" ] &&
  [ "$(realpath -m "${collection% (*}") (${collection##* (}" = "$expected_collection" ]; then
  pass "collection: $expected_collection"
else
  fail "collection: expected $expected_collection, got '${collection}'"
fi
for line in "configuration: $home/.config/Tessaly/Quorrel.cfg" \
  "created puzzles: $home/.local/share/Tessaly/PuzTemp.sud"; do
  got=$(value "${line%%: *}")
  if [ "${line%%: *}: $got" = "$line" ]; then
    pass "$line"
  else
    fail "$line (got '${got}')"
  fi
done
if diff "$tmp/before" "$tmp/after" >"$log"; then
  pass "nothing written under the unpacked root"
else
  fail "nothing written under the unpacked root" "$log"
fi

# --- cmake --install ----------------------------------------------------------
prefix=$tmp/prefix
if cmake --install "$build" --prefix "$prefix" >"$log" 2>&1; then
  pass "cmake --install --prefix"
  check_cli "$prefix" "cmake --install"
else
  fail "cmake --install --prefix" "$log"
fi

finish
