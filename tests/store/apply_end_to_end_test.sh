#!/bin/bash
# SPDX-License-Identifier: MIT
# Runs the end-to-end apply ($1) as root in a private mount namespace over a temporary /etc.
set -eu
. "$(dirname "$0")/../support/private_etc.sh"
in_private_etc "$@"
exec "$1" "$work/backups"
