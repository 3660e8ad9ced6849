#!/usr/bin/env bash
# Runs the browser test of the browser help in headless Chromium. The help
# folder under test is SCRIVANT_HELP_FOLDER; without it a small help is
# written by the generation test suite of SCRIVANT_BUILD_DIR (default build/).
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
cd "$here"
if [[ -z "${SCRIVANT_HELP_FOLDER:-}" ]]; then
  build="${SCRIVANT_BUILD_DIR:-$here/../../build}"
  folder="$(mktemp -d)"
  trap 'rm -rf "$folder"' EXIT
  SCRIVANT_BROWSER_HELP_FIXTURE="$folder" "$build/bin/generation_tests" \
    --gtest_filter='BrowserHelpTest.AWholeBrowserHelpForTheBrowserTest' > /dev/null
  export SCRIVANT_HELP_FOLDER="$folder"
fi
if [[ ! -d node_modules/playwright-core ]]; then
  npm ci --no-audit --no-fund --loglevel=error
fi
node --test browserhelp.test.mjs
