#!/bin/sh
# Works what the packages install, as somebody who has just installed them does: try_installed.sh FOLDER puts pictures
# into FOLDER. Ends with the first command that fails. Needs nothing but a shell and the packages.
set -eu
folder=$1
examples=/usr/share/doc/hxscannerctrls-tools/examples

echo "The components of this machine:"
hxctl classes
echo "New settings, of either kind:"
hxctl settings new --type 257
hxctl settings new --type 258
for page in measurement:first_session handheld:handheld diagnostics:diagnostics; do
    echo "The ${page%:*} page, worked by a script:"
    # 1 is for a line that was refused, as one of the examples shows.
    hxctl page "${page%:*}" --script "$examples/${page#*:}.page" || [ $? -eq 1 ]
done
echo "Pictures:"
hxctl screenshot preview "$folder/preview.png"
hxhost --picture "$folder/hxhost.png" --locale de-DE
for picture in preview hxhost; do
    [ -s "$folder/$picture.png" ]
    echo "$folder/$picture.png"
done
