#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Registers this build's Tarnwick with the current user's desktop: the menu
# entry and its icon, the project (.ebnt) and drawing (.dgn) file types, and
# Tarnwick as the program that opens both. An installed package does the same
# for every user.
# Usage: scripts/register-desktop.sh [EXECUTABLE]   (default: build/bin/tarnwick)
set -euo pipefail
cd "$(dirname "$0")/.."
exe=$(realpath -s "${1:-build/bin/tarnwick}")
app=example.norvale.Tarnwick
data=${XDG_DATA_HOME:-$HOME/.local/share}
for tool in update-mime-database update-desktop-database xdg-mime; do
  if ! command -v "$tool" >/dev/null; then
    echo "$tool not found: Tarnwick was not registered with the desktop"
    exit 0
  fi
done
mkdir -p "$data/applications" "$data/mime/packages" "$data/icons/hicolor/scalable/apps"

# Exec names this executable, quoted as desktop entries ask: \ " ` $ escaped
# inside the quotes, then every \ doubled again for the entry's string rules.
q=${exe//\\/\\\\}
q=${q//\"/\\\"}
q=${q//\`/\\\`}
q=${q//\$/\\\$}
q=${q//\\/\\\\}
q=${q//%/%%}
while IFS= read -r line; do
  case $line in
    Exec=*) printf 'Exec="%s" %%f\n' "$q" ;;
    *) printf '%s\n' "$line" ;;
  esac
done <"resources/desktop/$app.desktop" >"$data/applications/$app.desktop"

cp -r resources/icons/hicolor "$data/icons/"
cp resources/icons/tarnwick.svg "$data/icons/hicolor/scalable/apps/$app.svg"
cp "resources/desktop/$app.xml" "$data/mime/packages/"
update-mime-database "$data/mime"
update-desktop-database "$data/applications"
xdg-mime default "$app.desktop" application/x-tarnwick-ebnt image/vnd.dgn
echo "Registered with the desktop: $data/applications/$app.desktop"
