#!/usr/bin/env bash
# testsummary_test.sh SOURCES: the last lines of ./test.
set -eu
. "$(dirname "$0")/expect.sh"
cat >"$work/results.xml" <<'XML'
<testsuite name="x" tests="4" failures="1" disabled="0" skipped="2">
	<testcase name="A" classname="A" time="1" status="run">
		<system-out>fine</system-out>
	</testcase>
	<testcase name="B" classname="B" time="1" status="fail">
		<failure message=""/>
		<system-out>wrong</system-out>
	</testcase>
	<testcase name="C" classname="C" time="1" status="notrun">
		<skipped message="SKIP_REGULAR_EXPRESSION_MATCHED"/>
		<system-out>[ RUN      ] C
/src/c_test.cpp:7: Skipped
no formatter here</system-out>
	</testcase>
	<testcase name="D" classname="D" time="1" status="notrun">
		<skipped message="SKIP_REGULAR_EXPRESSION_MATCHED"/>
		<system-out>/src/d_test.cpp:9: Skipped
no formatter here
[  SKIPPED ] D</system-out>
	</testcase>
</testsuite>
XML
"$1/packaging/testsummary.sh" "$work/results.xml" >"$work/said"
expect "how many" grep -qxF "test: 2 tests ran, 1 of them failed; 2 skipped" "$work/said"
expect "and why" grep -qxF "test:   2 skipped: no formatter here" "$work/said"
done_testing
