#!/usr/bin/env bash
# Installs the packages of groups of tools/packages.txt that are missing: install-packages.sh GROUP...
set -euo pipefail
cd "$(dirname "$0")"

if ! command -v apt-get >/dev/null; then
    echo "Not a Debian system: install what stands for the packages in tools/packages.txt by hand." >&2
    exit 0
fi

missing=()
for package in $(sed -nE "s/^($(IFS='|' && echo "$*")) +//p" packages.txt); do
    status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || true
    [[ $status == installed* ]] || missing+=("$package")
done
if ((${#missing[@]} == 0)); then
    exit 0
fi

echo "Installing ${missing[*]}"
as_root=(env)
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "Missing packages. As root: apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
"${as_root[@]}" apt-get -q update
"${as_root[@]}" DEBIAN_FRONTEND=noninteractive apt-get -qy install --no-install-recommends "${missing[@]}"
