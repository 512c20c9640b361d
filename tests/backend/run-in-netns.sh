#!/bin/sh
# Runs a test inside a private network namespace with only loopback, so that whatever it
# sends can reach nothing but 127.0.0.1. The namespace ends with the test.
if [ "$(id -u)" -eq 0 ]; then
    flags="-n"
else
    flags="-rn"
fi
if unshare $flags true 2>/dev/null; then
    exec unshare $flags sh -c 'ip link set lo up && NODESCOPE_IN_NETNS=1 exec "$@"' sh "$@"
fi
echo "run-in-netns: cannot create a network namespace here; the test will skip" >&2
exec "$@"
