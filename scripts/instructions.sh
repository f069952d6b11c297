#!/usr/bin/env bash
# Counts the instructions one typical MP4 request executes, under callgrind: a figure
# that, unlike a time, does not move with the virtual machine's load.
# Usage: scripts/instructions.sh [function pattern, default Tervan::Bench::PlanMp4Job*]
set -euo pipefail
cd "$(dirname "$0")/.."
pattern=${1:-'Tervan::Bench::PlanMp4Job*'}
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

LD_LIBRARY_PATH="$library_path" valgrind --tool=callgrind --callgrind-out-file="$work/out" \
  --toggle-collect="$pattern" build/release/bin/tervan_bench \
  --benchmark_filter='TypicalMp4Request/real_time/threads:1$' --benchmark_min_time=0.05 >/dev/null 2>"$work/log"

# Instructions collected inside the function, divided by the calls made to it.
perl -ne '
  BEGIN { ($glob = shift @ARGV) =~ s/\*/.*/g; }
  if (/^(c?fn)=\((\d+)\)(?: (.*))?$/) { $name{$2} = $3 if defined $3; $callee = $1 eq "cfn" ? $2 : undef; next; }
  if (defined $callee && /^calls=(\d+)/) { my $n = $1; $calls += $n if $name{$callee} =~ /^$glob$/; $callee = undef; next; }
  $total = $1 if /^summary: (\d+)/;
  END { printf "%.1f k instructions per call (%d calls)\n", $total / $calls / 1000, $calls if $calls; }
' "$pattern" "$work/out"
