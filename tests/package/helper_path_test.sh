#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# A /usr configure after a /usr/local one in the same build folder must point the app and the
# polkit action at the /usr helper: the path follows the prefix and is never a stale cache entry.
set -euo pipefail
source_dir=$1
build=$(mktemp -d)
trap 'rm -rf "$build"' EXIT
configure() {
    cmake -S "$source_dir" -B "$build" -G Ninja -DCMAKE_INSTALL_PREFIX="$1" \
        -DPINECOVE_BUILD_TESTS=OFF -DPINECOVE_BUILD_BENCHMARKS=OFF >/dev/null
}
configure /usr/local
configure /usr
helper=/usr/libexec/pinecove/pinecove-write-hosts
grep -qF "PINECOVE_WRITE_HELPER=\\\"$helper\\\"" "$build/build.ninja" ||
    { echo "FAILED: the app is not built to call $helper"; exit 1; }
grep -qF ">$helper<" "$build/data/linux/io.pinecove.write-hosts.policy" ||
    { echo "FAILED: the polkit action does not name $helper"; exit 1; }
echo "helper path follows the prefix: $helper"
