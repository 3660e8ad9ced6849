#!/usr/bin/env bash
# Runs the browser tests in headless Chromium: the browser help, its
# accessibility (only on a help that the program wrote: the topics of the
# fixture below are written by hand), and (once, with the program of the
# build) the studio and its accessibility. The help folder under test is SCRIVANT_HELP_FOLDER;
# without it a small help is written by the generation test suite of
# SCRIVANT_BUILD_DIR (default build/), and the studio is tested too.
# SCRIVANT_STUDIO_TEST=1 tests the studio in either case.
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
cd "$here"
build="${SCRIVANT_BUILD_DIR:-$here/../../build}"
studio="${SCRIVANT_STUDIO_TEST:-}"
generated_help="${SCRIVANT_HELP_FOLDER:-}"
if [[ -z "${SCRIVANT_HELP_FOLDER:-}" ]]; then
  studio=1
  folder="$(mktemp -d)"
  trap 'rm -rf "$folder"' EXIT
  SCRIVANT_BROWSER_HELP_FIXTURE="$folder" "$build/bin/generation_tests" \
    --gtest_filter='BrowserHelpTest.AWholeBrowserHelpForTheBrowserTest' > /dev/null
  export SCRIVANT_HELP_FOLDER="$folder"
fi
if [[ ! -d node_modules/playwright-core || ! -d node_modules/axe-core ]]; then
  npm ci --no-audit --no-fund --loglevel=error
fi
node --test browserhelp.test.mjs
if [[ -n "$generated_help" ]]; then
  node --test a11y.test.mjs
fi
if [[ "$studio" == 1 ]]; then
  SCRIVANT_BUILD_DIR="$build" node --test studio.test.mjs
  SCRIVANT_BUILD_DIR="$build" node --test wizard.test.mjs
  SCRIVANT_BUILD_DIR="$build" node --test editor.test.mjs editor-logic.test.mjs
  SCRIVANT_BUILD_DIR="$build" node --test studio-a11y.test.mjs
fi
