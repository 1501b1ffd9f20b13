#!/usr/bin/env bash
# testsummary.sh RESULTS: the last lines of ./test. How many tests of a results file (JUnit, as ctest writes it) ran and
# failed, and for each reason how many were skipped.
set -eu
awk '
    function attribute(line, name,    rest) {
        if (!match(line, "[ \t]" name "=\"")) return ""
        rest = substr(line, RSTART + RLENGTH)
        return substr(rest, 1, index(rest, "\"") - 1)
    }
    /<testcase / { ++all; status = attribute($0, "status"); reason = ""; after = 0 }
    # A skipped test prints "FILE:LINE: Skipped" and then its reason on the next line.
    after { reason = $0; after = 0 }
    /: Skipped$/ { after = 1 }
    /<\/testcase>/ {
        if (status == "notrun" || status == "disabled") {
            ++skipped
            sub(/<.*/, "", reason)
            ++reasons[reason == "" ? "no reason given" : reason]
        } else if (status == "fail") {
            ++failed
        }
    }
    END {
        printf "test: %d tests ran", all - skipped
        if (failed) printf ", %d of them failed", failed
        printf "; %d skipped\n", skipped
        for (reason in reasons) printf "test:   %d skipped: %s\n", reasons[reason], reason
    }' "$1"
