#!/usr/bin/env bash
# What `./dev run` says on machines that lack something: a copy of it runs with tools that only pretend.
# Usage: first-minute.bash DEV
set -euo pipefail

dev=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# tool NAME BODY: one that pretends.
tool() {
    printf '#!/bin/bash\n%s\n' "$2" >"$work/bin/$1"
    chmod +x "$work/bin/$1"
}

# A machine that has everything.
machine() {
    rm -rf "${work:?}/bin" "${work:?}/house"
    mkdir -p "$work/bin" "$work/house"
    cp "$dev" "$work/house/dev"
    local name
    for name in bash dirname cat env grep sed mkdir chmod rm touch; do
        ln -s "$(command -v $name)" "$work/bin/$name"
    done
    tool uname 'echo Linux'
    tool getconf 'echo 4'
    tool id 'echo 0'
    tool apt-get 'echo "apt-get $*"'
    tool dpkg-query 'printf "install ok installed"'
    tool g++ ''
    # shellcheck disable=SC2016 # It is the tool that fills them in.
    tool cmake '
        if [ "$1" = --build ]; then
            program=build/release/Sources/TervaleWindow/Shell
            mkdir -p $program
            echo "[50%, 1 s] Building"
            printf "#!/bin/bash\necho \"window \$*\"\n" >$program/tervale-window
            chmod +x $program/tervale-window
        fi'
}

# try [NAME=VALUE...] -- ARGUMENT...: into `said` and `status`.
try() {
    local variables=()
    while [ "$1" != -- ]; do
        variables+=("$1")
        shift
    done
    shift
    status=0
    said=$(env -i PATH="$work/bin" DISPLAY=:0 "${variables[@]}" "$work/bin/bash" "$work/house/dev" "$@" 2>&1) || status=$?
}

expect() {
    local what=$1
    shift
    "$@" && return
    printf 'Does not hold: %s\nstatus %s, said:\n%s\n' "$what" "$status" "$said"
    failures=$((failures + 1))
}
says() { [[ $said == *"$1"* ]]; }
is_one_line() { [ "$(printf '%s\n' "$said" | wc -l)" -eq 1 ]; }
one_line_after() { [[ ${said#*"$1"} != *$'\n'* ]]; }
ends_with() { [ "${said##*$'\n'}" = "$1" ]; }

machine
try -- run --pane Sensors
expect "it ends in a window" [ "$status" -eq 0 ]
expect "the window is on a simulated Mac, with what was asked for" ends_with "window --simulate --pane Sensors"
expect "it says what it will do" says "builds Tervale in build/release, and opens its window"
expect "it says how long that takes" says "about 2 min on 4 processors"
expect "it shows how far it is" says "[50%, 1 s] Building"
try -- run
expect "the next time it says that little is left to do" says "Builds what has changed"

machine
try DISPLAY= -- run
expect "without a display it fails" [ "$status" -eq 1 ]
expect "one sentence says that there is no display" is_one_line
expect "the sentence says what works instead" says "There is no display to open a window on; './dev shots'"

machine
rm "$work/bin/g++"
try CXX= -- run
expect "without a compiler it fails" [ "$status" -eq 1 ]
expect "a sentence says that there is no compiler" says "There is no C++ compiler; install one"
expect "nothing is built without one" [ ! -d "$work/house/build" ]

machine
tool dpkg-query 'exit 1'
# shellcheck disable=SC2016 # The same.
tool apt-get '[ "$1" = update ] && { echo "W: Failed to fetch"; exit 0; }; echo "E: Unable to fetch"; exit 100'
try -- run
expect "without a network it fails" [ "$status" -eq 1 ]
expect "a sentence asks for the network" says "These packages could not be installed; is there a network? cmake"
expect "the sentence comes last, after what the tool says" says $'E: Unable to fetch\nThese packages could not'
expect "nothing comes after it" one_line_after "These packages could not be installed"
expect "of the packages only the window's are wanted" [ "${said/clang-tidy/}" = "$said" ]

machine
tool dpkg-query 'exit 1'
tool id 'echo 1000'
# shellcheck disable=SC2016 # The same.
tool apt-get 'touch "$0.ran"'
try -- run
expect "who is neither root nor has sudo can install nothing" [ "$status" -eq 1 ]
expect "a sentence names what is missing" says "These packages are missing, and to install them you have to be root or to have sudo: cmake"
expect "nothing comes after it either" one_line_after "These packages are missing"
expect "it does not ask for the network" [ "${said/network/}" = "$said" ]
expect "nothing is tried" [ ! -e "$work/bin/apt-get.ran" ]
tool sudo 'echo "sudo $*"'
try -- run
expect "with sudo it installs" says "sudo env DEBIAN_FRONTEND=noninteractive apt-get install"

machine
rm "$work/bin/apt-get"
try -- run
expect "where it cannot install, whatever is there does" [ "$status" -eq 1 ]
expect "what is missing there is named" says "There is no ninja, and this is neither Debian nor macOS"
tool ninja ''
try -- run
expect "it ends in a window on another system too" ends_with "window --simulate"

machine
tool cmake 'echo "Could not find Qt6"; exit 1'
try -- run
expect "a build that cannot be prepared fails" [ "$status" -eq 1 ]
expect "a sentence says so" ends_with "The build could not be prepared; the lines above say what is missing."

[ "$failures" -eq 0 ]
