#!/usr/bin/env bash
# mounted.sh SURVIVAL_TEST: saves on a tmpfs and on ext4 with and without ordered data, which become full, fail and
# lose their power. For root; takes some minutes. What it mounts goes with it.
set -euo pipefail

test=$(realpath "$1")
if [ -z "${MOUNTS_ARE_OURS:-}" ]; then
  MOUNTS_ARE_OURS=1 exec unshare --mount --propagation private "$0" "$test"
fi

work=$(mktemp -d)
loop=
trap 'umount "$work/archive" "$work/temporary" 2>/dev/null || true; [ -z "$loop" ] || losetup -d "$loop"; rm -rf "$work"' EXIT
mkdir "$work/archive" "$work/temporary"
mount -t tmpfs -o size=64m none "$work/temporary"
export TMPDIR=$work/temporary TESSARA_SURVIVAL_ARCHIVE=$work/archive TESSARA_SURVIVAL_ALL=1
export QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='*.warning=false'
failed=0

run() { # NAME FILTER
  echo "== $1: $2"
  "$test" --gtest_brief=1 --gtest_filter="$2" || failed=1
}

mount -t tmpfs -o size=16m none "$work/archive"
run tmpfs 'Survival.*:Mounted.AFullDisk*'
umount "$work/archive"

truncate -s 32M "$work/image"
loop=$(losetup --find --show "$work/image")
for options in data=ordered data=writeback; do
  mkfs.ext4 -q -F -m 0 "$loop"
  export TESSARA_SURVIVAL_DEVICE=$loop TESSARA_SURVIVAL_OPTIONS=$options
  mount -o "$options" "$loop" "$work/archive"
  run "ext4 $options" 'Survival.*:Mounted.AFullDisk*:-*ALimit*' # the limit is not the file system's
  umount "$work/archive"
  run "ext4 $options" 'Mounted.*Power*'
done
exit $failed
