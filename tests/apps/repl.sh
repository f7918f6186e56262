#!/usr/bin/env bash
# repl.sh ZORVANTA INPUT EXPECTED: feeds INPUT (printf escapes) to `zorvanta repl` and
# passes only when its combined output is exactly EXPECTED (printf escapes).
out="$(printf '%b' "$2" | "$1" repl 2>&1)"; code=$?
want="$(printf '%b' "$3")"
if [[ $code -ne 0 ]]; then echo "exit code $code; output:"; echo "$out"; exit 1; fi
if [[ "$out" != "$want" ]]; then printf 'output:\n%s\nwanted:\n%s\n' "$out" "$want"; exit 1; fi
