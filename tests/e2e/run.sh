#!/usr/bin/env bash
# Runs the browser test of the browser help in headless Chromium. The help
# folder under test is SCRIVANT_HELP_FOLDER; without it a small help is
# written by the generation test suite of SCRIVANT_BUILD_DIR (default build/).
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
cd "$here"
# The accessibility test checks only a help that the program wrote: the
# topics of the fixture below are written by hand.
generated_help="${SCRIVANT_HELP_FOLDER:-}"
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
[[ -d node_modules/axe-core ]] || npm ci --no-audit --no-fund --loglevel=error
node --test browserhelp.test.mjs
if [[ -n "$generated_help" ]]; then
  node --test a11y.test.mjs
fi
