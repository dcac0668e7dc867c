#!/usr/bin/env bash
# Runs a GNUstep program on a display of its own and with user files of its own; its output
# comes at the end. GTEST_FILTER in the environment chooses tests: the application would take
# arguments for documents.
set -u
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# GNUstep takes the home folder from the password file, not from HOME, so the user's folder is
# named from there up.
mkdir "$work/GNUstep"
sed "s#=GNUstep#=../../../../../../../..$work/GNUstep#" /etc/GNUstep/GNUstep.conf \
  >"$work/GNUstep.conf"
export GNUSTEP_CONFIG_FILE=$work/GNUstep.conf
export TEMP=$work  # where it keeps whom its programs can talk to

# Helpers that GNUstep starts would stay a while, and write into the user's folder when it is gone.
here=$(dirname "$0")
"$here/endhelpers.py" "$here/../window/with-xvfb.sh" 100 "$@" >"$work/output" 2>&1
result=$?
# What is left out is said once for each kind of window where no manager is.
grep -v 'Failed to determine offsets' "$work/output"
exit $result
