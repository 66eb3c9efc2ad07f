#!/bin/sh
# SPDX-License-Identifier: MIT
# launch.sh CCACHE COMPILER ARGS...: compiles through ccache. Beside a precompiled header stands its checksum, so that
# ccache reads that (CCACHE_PCH_EXTSUM) and not two hundred megabytes for each source.
"$@" || exit
case "$*" in
*' -o '*.gch' '*)
    header=${*##* -o }
    header=${header%%.gch *}.gch
    cksum "$header" >"$header.sum"
    ;;
esac
