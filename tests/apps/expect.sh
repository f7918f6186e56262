#!/usr/bin/env bash
# expect.sh CODE REGEX COMMAND...: runs COMMAND and passes only when it exits with
# CODE and its combined output matches the extended regular expression REGEX.
code="$1"; regex="$2"; shift 2
out="$("$@" 2>&1)"; got=$?
if [[ $got -ne $code ]]; then echo "exit code $got, wanted $code; output:"; echo "$out"; exit 1; fi
if ! grep -Eq -- "$regex" <<<"$out"; then echo "output does not match '$regex':"; echo "$out"; exit 1; fi
