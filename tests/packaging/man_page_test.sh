#!/usr/bin/env bash
# man_page_test.sh BUILD: the man page of hxctl has a section for each of its commands, and for nothing else.
set -euo pipefail
diff <("$1/bin/hxctl" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]\+\) .*/\1/p' | sort) \
     <(sed -n 's/^[.]SS //p' "$(dirname "$0")/../../packaging/man/hxctl.1.in" | sort)
