#!/usr/bin/env bash
# From a fresh Debian 12 machine (as root): install what is missing, build, and run the
# tool's main job: repair a conversion job and say why.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
cmake --preset release >/dev/null
cmake --build --preset release
job=examples/jobs/mp4-mp3-11025.json
echo "== tervan-job check $job"
./build/release/bin/tervan-job check "$job" || true
echo "== tervan-job fix $job"
./build/release/bin/tervan-job fix "$job"
