#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds the Release configuration, checks a staged install of it and makes
# the Debian package build-release/tarnwick_<version>_<arch>.deb, checked by
# lintian: any warning fails it.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build-release
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DTARNWICK_WERROR=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"
cmake -DBUILD_DIR="$PWD/$build" -DSOURCE_DIR="$PWD" -DPROGRAM_SUBDIR=lib/tarnwick -DREQUIRE_VALIDATORS=ON \
  -DSAMPLE="$PWD/samples/intermediate.ebnt" -P tests/InstallCheck.cmake >/dev/null
echo "Staged install: check and run work, validators pass"
rm -f "$build"/tarnwick_*.deb
(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls "$build"/tarnwick_*.deb)
lintian --fail-on warning "$deb"
echo "Package: $deb"
