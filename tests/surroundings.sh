#!/usr/bin/env bash
# Tries the built program in surroundings that are not a developer's: other locales, a home folder that cannot be written,
# no fonts, a wrong clock, a sudden end, two starts at once. Prints what each gave; exit status 1 when one does not hold.
#   tests/surroundings.sh [BUILD=build]
set -uo pipefail
cd "$(dirname "$0")/.."
build=$PWD/${1:-build}
app=$build/app
soak=$build/tests/soak/marvello-soak

work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT
chmod 755 "$work"
mkdir -p -m 777 "$work"/{config,pictures,tmp}
mkdir -m 700 "$work/runtime"
export QT_QPA_PLATFORM=offscreen TMPDIR=$work/tmp MARVELLO_SPLASH_MS=100
export HOME=$work/config XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/runtime
status=0

result() { # NAME OK DETAIL: OK is "true" or "false"
    printf '%-48s %s%s\n' "$1" "$([ "$2" = true ] && echo holds || echo FAILS)" "${3:+  ($3)}"
    [ "$2" = true ] || status=1
}
holds() { # NAME COMMAND...
    local name=$1 said
    shift
    if said=$("$@" 2>&1 >/dev/null); then result "$name" true; else result "$name" false "$(tail -n 1 <<<"$said")"; fi
}
demo() { "$app/marvello-demo" "$work/pictures/picture.png" "$work/pictures/picture.pdf"; }
killed_after() { # SECONDS COMMAND...
    local seconds=$1
    shift
    (exec "$@" >/dev/null 2>&1) &
    sleep "$seconds"
    kill -9 $! && wait $!
} 2>/dev/null

# Locales: what goes to other programs has "." whatever the machine says.
selected() {
    for format in csv json table; do
        "$app/marvello-select" --refrigerant R407C --series TK-A --ted 2.5 --tcd 41.5 --format $format
    done
}
mkdir -p "$work/locales"
expected=$(LC_ALL=C selected | sha256sum)
for locale in de_DE zh_CN; do
    localedef -i $locale -f UTF-8 "$work/locales/$locale.UTF-8" 2>/dev/null
    export LOCPATH=$work/locales LANG=$locale.UTF-8
    export LC_ALL=$locale.UTF-8 2>/dev/null
    result "$locale: marvello-select writes the same" "$([ "$(selected | sha256sum)" = "$expected" ] && echo true || echo false)"
    holds "$locale: demonstration" demo
    holds "$locale: 300 random actions" "$soak" --seed 7 --actions 300
done
unset LOCPATH LANG LC_ALL

# A home folder that cannot be written, for an ordinary user.
mkdir "$work/home" && chmod 555 "$work/home"
ordinary=()
[ "$(id -u)" -ne 0 ] || ordinary=(setpriv --reuid=65534 --regid=65534 --clear-groups)
holds "read-only home: demonstration" "${ordinary[@]}" env HOME="$work/home" XDG_CONFIG_HOME="$work/home" \
    XDG_RUNTIME_DIR="$work/home" XDG_DATA_HOME="$work/home" XDG_CACHE_HOME="$work/home" "$app/marvello-demo" "$work/pictures/home.png" "$work/pictures/home.pdf"

# No fonts at all.
echo '<?xml version="1.0"?><fontconfig></fontconfig>' >"$work/fonts.conf"
holds "no fonts: demonstration" env FONTCONFIG_FILE="$work/fonts.conf" "$app/marvello-demo" "$work/pictures/fonts.png" "$work/pictures/fonts.pdf"
holds "no fonts: 300 random actions" env FONTCONFIG_FILE="$work/fonts.conf" "$soak" --seed 8 --actions 300

# A sudden end, in a start, a selection and all that the random actions do: the next start finds no lock in its way, and
# each file that bears its name is whole.
for seconds in 0.05 0.1 0.15 0.2 0.25 0.3 0.4 0.5; do
    killed_after $seconds "$app/marvello-demo" "$work/pictures/picture.png" "$work/pictures/picture.pdf"
    [ ! -e "$work/runtime/marvello.lock" ] || left=true
done
result "killed: a lock was left" "${left:-false}"
holds "killed: starts again" demo
: >"$work/runtime/marvello.lock"
holds "killed while the lock was written: starts again" demo
for seed in 11 12 13 14 15 16; do killed_after 2.$seed "$soak" --seed $seed --actions 100000; done
damaged=$(find "$work/tmp" -name '*.xml' -exec python3 -c 'import sys, xml.dom.minidom
for name in sys.argv[1:]:
    try: xml.dom.minidom.parse(name)
    except Exception: print(name)' {} +
    find "$work/tmp" -name '*.pdf' -exec sh -c 'for f; do tail -c 6 "$f" | grep -q "%%EOF" || echo "$f"; done' sh {} +
    find "$work" -name 'Marvello.conf' -exec sh -c 'for f; do [ "$(tail -c 1 "$f")" = "" ] && head -1 "$f" | grep -q "^\[" || echo "$f"; done' sh {} +)
whole=$(find "$work" -name '*.xml' -o -name '*.pdf' -o -name Marvello.conf | wc -l)
result "killed: files are whole" "$([ -z "$damaged" ] && [ "$whole" -gt 6 ] && echo true || echo false)" "$whole files; ${damaged:-none damaged}"

# The clock: of long ago and of the time after 2038, also over a lock that another time has left.
if command -v faketime >/dev/null; then
    preload=$(faketime now sh -c 'echo "$LD_PRELOAD"')
    for year in 1999 2040 2106; do
        holds "year $year: demonstration" env FAKETIME_DONT_FAKE_MONOTONIC=1 LD_PRELOAD="$preload" \
            FAKETIME="@$year-02-28 23:59:50" "$app/marvello-demo" "$work/pictures/$year.png" "$work/pictures/$year.pdf"
        killed_after 0.3 env FAKETIME_DONT_FAKE_MONOTONIC=1 LD_PRELOAD="$preload" FAKETIME="@$year-02-28 23:59:50" \
            "$app/marvello-demo" "$work/pictures/$year.png" "$work/pictures/$year.pdf"
        holds "year $year: starts after a sudden end then" demo
    done
else
    echo "the clock: left out, faketime is not there"
fi

# Two starts at once: one works, the other says so.
demo >"$work/first" 2>&1 & first=$!
demo >"$work/second" 2>&1 & second=$!
wait $first; a=$?
wait $second; b=$?
said=$(cat "$work/first" "$work/second" | grep -c "Another copy of Marvello is already running")
result "two at once: one runs, one says so" "$([ $((a + b)) -eq 1 ] && [ "$said" -eq 1 ] && echo true || echo false)" "exit $a and $b"
exit $status
