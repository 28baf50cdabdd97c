# shellcheck shell=bash
# Shared by run.sh, test.sh and .ci/run: installs what is missing and builds. Sourced, with `root` set to the repository.

: "${root:?}"

say() { printf '== %s\n' "$*" >&2; }

# Shows the output of a command only if it fails.
quietly() {
    local log
    log=$(mktemp)
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        say "failed: $*"
        return 1
    fi
    rm -f "$log"
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

is_installed() {
    case $1 in
        npm) command -v npm >/dev/null ;; # a Node.js of another origin brings it too
        *) [ "$(dpkg-query -W -f='${db:Status-Abbrev}' "$1" 2>/dev/null)" = "ii " ] ;;
    esac
}

# ensure_packages PURPOSE...: installs the packages of packaging/packages.txt that are missing.
ensure_packages() {
    local purpose package missing=()
    while read -r purpose package; do
        case " $* " in *" $purpose "*) is_installed "$package" || missing+=("$package") ;; esac
    done < <(grep -v '^#' "$root/packaging/packages.txt")
    [ ${#missing[@]} -eq 0 ] && return
    say "installing: ${missing[*]}"
    quietly as_root apt-get update
    quietly as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures where needed and builds.
build() {
    local preset=$1 targets=()
    shift
    [ $# -eq 0 ] || targets=(--target "$@")
    [ -f "$root/build/$preset/build.ninja" ] || say "configuring $preset (build/$preset)"
    (
        cd "$root" || return
        quietly cmake --preset "$preset" -DKALVORA_TESTS="${KALVORA_TESTS:-ON}"
        [ "$(ninja -C "build/$preset" -n "$@" 2>/dev/null | tail -n 1)" = "ninja: no work to do." ] ||
            say "building $preset"
        quietly cmake --build --preset "$preset" "${targets[@]}"
    )
}

# run_tests PRESET [CTEST ARGUMENT...]: shows failures and the summary.
run_tests() {
    local preset=$1
    shift
    say "testing $preset"
    (cd "$root" && ctest --preset "$preset" -j "$(nproc)" "$@") |
        { grep -vE '^ +Start +[0-9]+:|^ *[0-9]+/[0-9]+ Test .* (Passed|\*\*\*Skipped) ' || true; }
}
