# shellcheck shell=bash
# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Shared by ./run, ./check and the other scripts: where things are, and steps that are quiet when they go well.
# Everything said here goes to standard error; standard output may be carrying audio.

# The scripts that source this file use these.
# shellcheck disable=SC2034
project_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
# shellcheck disable=SC2034
num_jobs="$(nproc)"
log_folder="$project_root/build/logs"
log_lines_shown=60

say() { printf '%s\n' "$*" >&2; }

die() {
    say "$(basename "$0"): $*"
    exit 1
}

# lock_builds: keeps other ./run and ./check out of the build folders, until unlock_builds or the end. Waits for them.
lock_builds() {
    mkdir -p "$project_root/build"
    exec 9>"$project_root/build/lock"
    flock --nonblock 9 && return
    say "Waiting for another ./run or ./check in this checkout ..."
    flock 9
}

unlock_builds() { exec 9>&-; }

# log_path NAME: where the step of that name writes what its command prints.
log_path() { printf '%s/%s.log' "$log_folder" "${1//[^A-Za-z0-9]/-}"; }

# show_log NAME: the end of a step's log, indented.
show_log() {
    local log
    log="$(log_path "$1")"
    say "  the last lines of ${log#"$project_root"/}:"
    tail -n "$log_lines_shown" "$log" | sed 's/^/    /' >&2
}

# logged NAME COMMAND...: runs the command with its output in the step's log, and shows the end of it on failure.
logged() {
    local name="$1"
    shift
    mkdir -p "$log_folder"

    if ! "$@" >"$(log_path "$name")" 2>&1; then
        say "$name: failed"
        show_log "$name"
        return 1
    fi
}

# configure_and_build PRESET TARGET...: the output folder is build/PRESET.
configure_and_build() {
    local preset="$1"
    shift
    local -a targets=()
    (($# == 0)) || targets=(--target "$@")

    if [[ ! -e "$project_root/build/$preset/build.ninja" ]]; then
        cmake -S "$project_root" --preset "$preset" || return 1
    fi

    cmake --build "$project_root/build/$preset" --parallel "$num_jobs" "${targets[@]}"
}
