#!/usr/bin/env bash
# man_page_test.sh BUILD: the man page of hxctl has a section for each of its commands, and for nothing else; each tells
# the command's options, beside those that every command has.
set -euo pipefail
page=$(dirname "$0")/../../packaging/man/hxctl.1.in
hxctl=$1/bin/hxctl
commands_of() { "$hxctl" "$@" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]\+\) .*/\1/p'; }
options_of() { "$hxctl" "$@" --help | grep -o '^  -[-a-z,]*' | grep -o -- '--[a-z-]*'; }

diff <(commands_of | sort) <(sed -n 's/^[.]SS //p' "$page" | sort)
missing=0
for command in $(commands_of); do
    section=$(sed -n "/^[.]SS $command\$/,/^[.]S[SH] /p" "$page" | sed 's/\\-/-/g')
    for inner in "" $(commands_of "$command"); do
        for option in $(options_of "$command" $inner); do
            case "$option" in --help | --json) continue ;; esac
            grep -qF -- "$option" <<<"$section" && continue
            echo "hxctl $command $inner: the man page has no $option" >&2
            missing=1
        done
    done
done
exit $missing
