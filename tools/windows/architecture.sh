# Reads the one option of the commands here, [--arch x86_64|i686], into $arch. The command that
# includes this has said in usage() how it is called.
# shellcheck shell=bash
arch=x86_64
case "$#:${1:-}" in
  0:) ;;
  2:--arch) arch=$2 ;;
  1:--help | 1:-h)
    usage
    exit 0
    ;;
  *) arch= ;;
esac
case "$arch" in
  x86_64 | i686) ;;
  *)
    usage >&2
    exit 2
    ;;
esac
