# Functions for ./run, ./test and the scripts in this folder, which source this file in bash.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '%s\n' "$*"; }
complain() { printf '%s\n' "$*" >&2; }

# The packages of packages.txt that are not installed, one a line.
missing_packages() {
    local listed
    mapfile -t listed < <(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$root/scripts/packages.txt")
    # dpkg-query fails for an unknown package, but still answers for the others.
    comm -23 <(printf '%s\n' "${listed[@]}" | sort -u) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${listed[@]}" 2>/dev/null \
            | sed -n 's/^installed //p' | sort -u)
}

# Installs missing packages as root or with sudo. If none is missing, it needs neither, and no network.
install_packages() {
    local missing as_root=()
    if ! command -v dpkg-query >/dev/null; then
        complain "This is no Debian system. The packages of scripts/packages.txt are assumed to be installed."
        return 0
    fi
    mapfile -t missing < <(missing_packages)
    ((${#missing[@]})) || return 0
    say "Installing: ${missing[*]}"
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            complain "Packages are missing, and there is neither root nor sudo. Ask an administrator to run:"
            complain "  apt-get install --no-install-recommends ${missing[*]}"
            return 1
        fi
        as_root=(sudo)
    fi
    # Waits for the lock, because a machine that was just started may be updating itself.
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
    "${as_root[@]}" "${apt[@]}" update || complain "The package lists could not be updated. Trying with the existing ones."
    "${as_root[@]}" "${apt[@]}" install -y --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures and builds the targets, or those of the preset. Prints the progress on a terminal;
# otherwise it prints only failures, and build/PRESET/build.log has the whole output.
build() {
    local preset=$1 log="$root/build/$1/build.log" command=(cmake --build --preset "$1")
    shift
    (($# == 0)) || command+=(--target "$@")
    mkdir -p "${log%/*}"
    if ! (cd "$root" && cmake --preset "$preset") >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
    if [[ -t 1 ]]; then
        (cd "$root" && "${command[@]}")
    elif ! (cd "$root" && "${command[@]}") >>"$log" 2>&1; then
        grep -vE '^\[[0-9]+/[0-9]+\] ' "$log" | tail -n 80 >&2
        return 1
    fi
}

# fuzz_target NAME SECONDS: runs the inputs of fuzz/corpus/NAME first, then new ones. Inputs that reach new code are stored
# in build/fuzz/corpus/NAME, and inputs that make the program fail in build/fuzz/findings/.
fuzz_target() {
    local grown="$root/build/fuzz/corpus/$1" findings="$root/build/fuzz/findings" kept="$root/fuzz/corpus/$1" options=()
    mkdir -p "$grown" "$findings"
    [[ ! -f $root/fuzz/$1.dict ]] || options+=(-dict="$root/fuzz/$1.dict")
    [[ -n $(ls -A "$kept") ]] || { complain "$kept has no inputs"; return 1; }
    timeout --kill-after=10 $(($2 + 300)) "$root/build/fuzz/bin/$1-fuzz" -max_total_time="$2" -timeout=25 \
        -print_final_stats=1 -artifact_prefix="$findings/$1-" "${options[@]}" "$grown" "$kept"
}

# base_commit: the state that the work in this checkout began from: where it left the default branch of origin, or
# else of this repository (main). On that branch itself, the newest tag; without a tag, the commit before the last.
# Fails without a git history, or if that is cut off.
base_commit() {
    local branch base
    for branch in origin/HEAD main; do
        base=$(git -C "$root" merge-base HEAD "$branch" 2>/dev/null) || continue
        [[ $base == "$(git -C "$root" rev-parse HEAD)" ]] || { say "$base"; return; }
    done
    base=$(git -C "$root" describe --tags --abbrev=0 HEAD^ 2>/dev/null) || base=HEAD^
    git -C "$root" rev-parse -q --verify "$base^{commit}" 2>/dev/null
}
