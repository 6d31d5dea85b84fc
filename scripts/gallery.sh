#!/usr/bin/env bash
# Draws every page of the panel in both themes into docs/screenshots/
# (<page>_<theme>.png) and renews the gallery table at the end of README.md.
# Uses ./build, or $BUILD_DIR; builds only the page tests.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
out=$root/docs/screenshots
readme=$root/README.md

BUILD_DIR=$build bash "$root/scripts/build.sh" test_pages

rm -rf "$out"
mkdir -p "$out"
QT_QPA_PLATFORM=offscreen PANEL_GALLERY_DIR=$out \
    "$build/tests/test_pages" --gtest_filter='Gallery.*' --gtest_brief=1

# The table replaces whatever stands between the two markers of the README.
table=$out/gallery.md
grep -q '<!-- gallery:begin -->' "$readme" && grep -q '<!-- gallery:end -->' "$readme" || {
    echo "README.md has no gallery markers" >&2
    exit 1
}
awk -v table="$table" '
    /<!-- gallery:begin -->/ { print; while ((getline line < table) > 0) print line; skipping = 1; next }
    /<!-- gallery:end -->/ { skipping = 0 }
    !skipping { print }
' "$readme" >"$readme.new"
mv "$readme.new" "$readme"
rm -f "$table"
echo "gallery: $(find "$out" -name '*.png' | wc -l) pictures in ${out#"$root"/}"
