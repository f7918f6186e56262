#!/usr/bin/env bash
# Installs the Debian packages of scripts/packages.txt that are missing.
# Sourced by main.sh and test.sh; does nothing when everything is there.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"

missing=()
while read -r pkg; do
    [[ -z "$pkg" || "$pkg" == \#* ]] && continue
    dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q 'install ok installed' || missing+=("$pkg")
done < "$here/packages.txt"

if ((${#missing[@]})); then
    echo "Installing missing packages: ${missing[*]}"
    sudo=""
    [[ $(id -u) -eq 0 ]] || sudo="sudo"
    $sudo apt-get update -q
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
fi
