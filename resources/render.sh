#!/usr/bin/env bash
# Draws the built-in images anew after a change in make_icons.py: the vector sources in svg/, the
# images in icons/ and cursors/, and the sheet docs/images/resources.png that shows them all on
# light and on dark ground. Needs python3, rsvg-convert (Debian: librsvg2-bin) and ImageMagick. The
# results are kept in the tree, so that a build needs none of these.
set -euo pipefail
cd "$(dirname "$0")"

for tool in python3 rsvg-convert convert montage; do
  command -v "$tool" >/dev/null || { echo "render.sh: $tool is missing" >&2; exit 2; }
done

rm -rf svg icons cursors
mkdir icons cursors
python3 make_icons.py
for source in svg/icons/*.svg svg/cursors/*.svg; do
  folder=$(basename "$(dirname "$source")")
  target=$folder/$(basename "$source" .svg).png
  rsvg-convert "$source" | convert - -strip -define png:exclude-chunks=date,time "PNG32:$target"
done
# One icon is a bitmap without transparency.
convert icons/multi_color.png -background white -alpha remove -alpha off BMP3:icons/multi_color.bmp
rm icons/multi_color.png

sheet=$(mktemp -d)
trap 'rm -rf "$sheet"' EXIT
for ground in '#ffffff #202020' '#2b2b2b #e8e8e8'; do
  set -- $ground
  montage -label '%t' icons/* cursors/* -filter point -resize 200% -tile 7x -geometry 136x54+4+6 \
    -background "$1" -fill "$2" -font DejaVu-Sans -pointsize 8 "$sheet/large-${1#\#}.png"
  montage icons/* cursors/* -tile 24x -geometry 26x26+8+5 -background "$1" "$sheet/small-${1#\#}.png"
done
mkdir -p ../docs/images
convert "$sheet"/small-ffffff.png "$sheet"/small-2b2b2b.png "$sheet"/large-ffffff.png "$sheet"/large-2b2b2b.png \
  -gravity center -background '#808080' -append -strip ../docs/images/resources.png
