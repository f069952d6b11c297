#!/usr/bin/env bash
# Counts the instructions one typical MP4 request executes, under callgrind: a figure
# that, unlike a time, does not move with the virtual machine's load. The profile stays
# in build/release/callgrind.out for callgrind_annotate.
set -euo pipefail
cd "$(dirname "$0")/.."
out=build/release/callgrind.out
cmake --preset release >/dev/null
cmake --build --preset release --target tervan_bench >/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# libavcodec pulls in libhwy, whose initialiser executes rdtscp even where the processor
# does not announce it; valgrind then stops the program. Under valgrind only, it gets a
# copy in which rdtscp reads the same counter through rdtsc.
library_path=""
hwy=$(ldd build/release/bin/tervan_bench | awk '/libhwy/ {print $3}')
if [ -n "$hwy" ] && ! grep -qw rdtscp /proc/cpuinfo; then
  mkdir "$work/lib"
  perl -0777 -pe 's/\x0f\x01\xf9/\x0f\x31\x90/g' "$hwy" >"$work/lib/$(basename "$hwy")"
  library_path="$work/lib"
fi

if ! LD_LIBRARY_PATH="$library_path" valgrind --tool=callgrind --callgrind-out-file="$out" \
  --toggle-collect='Tervan::Bench::PlanMp4Job*' build/release/bin/tervan_bench \
  --benchmark_filter='TypicalMp4Request/real_time/threads:1$' --benchmark_min_time=0.05 >/dev/null 2>"$work/log"; then
  cat "$work/log" >&2
  exit 1
fi

# Instructions collected inside the function, divided by the calls made to it.
perl -ne '
  if (/^(c?fn)=\((\d+)\)(?: (.*))?$/) { $name{$2} = $3 if defined $3; $callee = $1 eq "cfn" ? $2 : undef; next; }
  if (defined $callee && /^calls=(\d+)/) { my $n = $1; $calls += $n if $name{$callee} =~ /^Tervan::Bench::PlanMp4Job/; $callee = undef; next; }
  $total = $1 if /^summary: (\d+)/;
  END { die "no typical request was profiled\n" unless $calls; printf "%.1f k instructions per request (%d requests)\n", $total / $calls / 1000, $calls; }
' "$out"
