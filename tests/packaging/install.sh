#!/bin/sh
# cmake --install installs the expected files and nothing else.
# install.sh SOURCE BUILD DESTINATION PREFIX LIBRARIES LIBRARY
set -eu
source=$1
build=$2
destination=$3
prefix=$4
libraries=$5
library=$6
rm -rf "$destination"
DESTDIR=$destination cmake --install "$build" >/dev/null

{
    sed -nE 's|^    ((records\|engine\|store\|widget)/.*\.hpp\|quillmere\.hpp)$|include/quillmere/\1|p' "$source/core/CMakeLists.txt"
    cat <<END
bin/quillmere
lib/systemd/user/quillmere-watch.service
libexec/quillmere/quillmere-notifier
$libraries/$library
$libraries/cmake/QuillmereCore/QuillmereCoreConfig.cmake
$libraries/cmake/QuillmereCore/QuillmereCoreConfigVersion.cmake
$libraries/cmake/QuillmereCore/QuillmereCoreTargets.cmake
$libraries/cmake/QuillmereCore/QuillmereCoreTargets-*.cmake
$libraries/pkgconfig/QuillmereCore.pc
share/applications/quillmere.desktop
share/applications/quillmere-link.desktop
share/bash-completion/completions/quillmere
share/doc/quillmere/file-formats.md
share/fish/vendor_completions.d/quillmere.fish
share/icons/hicolor/scalable/apps/quillmere.svg
share/man/man1/quillmere.1.gz
share/man/man5/quillmere.5.gz
share/zsh/site-functions/_quillmere
END
} | LC_ALL=C sort >"$destination/expected"
# One configuration, whatever its name.
(cd "$destination$prefix" && find . -type f) | sed -E 's|^\./||; s|(Targets-)[a-z]+(\.cmake)$|\1*\2|' |
    LC_ALL=C sort >"$destination/found"
diff "$destination/expected" "$destination/found"

# The unit contains the prefix of the installation, even if it differs from the configured one.
started() { sed -n 's/^ExecStart=\([^ ]*\) .*/\1/p' "$1/lib/systemd/user/quillmere-watch.service"; }
other=$destination/other
cmake --install "$build" --prefix "$other" >/dev/null
[ "$(started "$other")" = "$other/bin/quillmere" ] || { echo "the unit starts $(started "$other")"; exit 1; }
[ -x "$other/bin/quillmere" ] || { echo "it is not there"; exit 1; }
rm -r "$other"
[ "$(started "$destination$prefix")" = "$prefix/bin/quillmere" ] ||
    { echo "for $prefix the unit starts $(started "$destination$prefix")"; exit 1; }

# Each file belongs to a component. Packages are made of components, so a file without one would be in no
# package.
DESTDIR=$destination/nowhere cmake --install "$build" --component Unspecified >/dev/null
if find "$destination" -path "$destination/nowhere/*" -type f | grep .; then
    echo "these are in no package"
    exit 1
fi

# Every file is readable for everybody, and none is outside of the prefix.
if find "$destination$prefix" ! -perm -a=r | grep .; then
    echo "not everybody may read these"
    exit 1
fi
if find "$destination" -type f ! -path "$destination$prefix/*" ! -name expected ! -name found | grep .; then
    echo "these stand outside the prefix"
    exit 1
fi
