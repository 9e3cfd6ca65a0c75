# Makes the Wine for programs of $arch the one that is found first. The command that includes this has
# installed what tests under Wine take.
# shellcheck shell=bash disable=SC2154
if [ "$arch" = i686 ]; then
  commands=$("$(dirname "${BASH_SOURCE[0]}")/wine-i386.sh" | tee /dev/stderr | tail -n 1)
  PATH=$commands:$PATH
fi
