# Sourced, after tools/prepare.sh: the libraries that the game for Windows is linked with, built from Debian's own
# sources. They lie in a cache folder that outlives the clone; removing it takes in newer sources.

windows_packages() {
  packages g++-mingw-w64-x86-64-posix mingw-w64-tools wine wine64 wine64-tools nsis icoutils librsvg2-bin dpkg-dev zip \
    googletest "$@"
}

windows_cache=${XDG_CACHE_HOME:-$HOME/.cache}/korvane

# Apt with the machine's own sources of programs turned into those of source texts; nothing of the machine's is touched.
source_apt() {
  local folder=$windows_cache/apt
  local list parts file
  mkdir -p "$folder"/{parts,lists/partial,archives/partial}
  list=$(apt-config shell file Dir::Etc::sourcelist/f) && eval "$list"
  list=$file
  parts=$(apt-config shell file Dir::Etc::sourceparts/d) && eval "$parts"
  parts=$file
  rm -f "$folder"/parts/*
  for file in "$list" "$parts"/*.list "$parts"/*.sources; do
    [ -f "$file" ] || continue
    sed -E 's/^deb([[:space:]])/deb-src\1/; s/^Types:.*/Types: deb-src/' "$file" >"$folder/parts/${file##*/}"
  done
  apt-get -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$folder/parts" -o Dir::State::Lists="$folder/lists" \
    -o Dir::Cache="$folder" -o APT::Sandbox::User= "$@"
}

# build_library FOLDER OPTION...: builds and installs what is in the folder.
build_library() {
  local folder=$1
  shift
  cmake -S "$folder" -B "for-windows/${folder##*/}" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DLIBRARIES="$prefix" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF \
    -DCMAKE_C_FLAGS="-ffile-prefix-map=$PWD=." "$@" &&
    cmake --build "for-windows/${folder##*/}" && cmake --install "for-windows/${folder##*/}"
}

# library NAME SOURCE OPTION...: the same for a source of Debian's.
library() {
  local name=$1 source=$2
  shift 2
  echo "Building $name for Windows" >&3
  dpkg-source --no-check -x "$source"_*.dsc "$name" && build_library "$name" "$@" &&
    mkdir -p "$prefix/licences" && cp "$name/debian/copyright" "$prefix/licences/$name.txt"
}

# Turns off all that is named, with a prefix.
without() {
  local prefix=$1 name
  shift
  for name in "$@"; do echo "-D$prefix$name=OFF"; done
}

build_libraries() {
  local prefix=$1 toolchain=$2
  source_apt -qq update ||
    echo "Not every place that packages come from has their sources; going on with those that have"
  source_apt -qq source --download-only libsdl2 libsdl2-image libsdl2-ttf libsdl2-mixer freetype &&
    library freetype freetype \
      -DFT_DISABLE_ZLIB=ON -DFT_DISABLE_BZIP2=ON -DFT_DISABLE_PNG=ON -DFT_DISABLE_HARFBUZZ=ON -DFT_DISABLE_BROTLI=ON &&
    library sdl libsdl2 -DSDL_STATIC=ON -DSDL_DIRECTX=ON \
      $(without SDL_ SHARED TEST JOYSTICK HAPTIC SENSOR HIDAPI POWER RENDER OPENGL OPENGLES VULKAN) &&
    library sdl-image libsdl2-image -DSDL2IMAGE_VENDORED=ON -DSDL2IMAGE_BACKEND_STB=ON \
      $(without SDL2IMAGE_ SAMPLES DEPS_SHARED AVIF JPG JXL TIF WEBP BMP GIF LBM PCX PNM QOI TGA XCF XPM XV) &&
    library sdl-ttf libsdl2-ttf $(without SDL2TTF_ SAMPLES VENDORED HARFBUZZ) &&
    library sdl-mixer libsdl2-mixer \
      $(without SDL2MIXER_ SAMPLES VENDORED DEPS_SHARED CMD FLAC MOD MP3 MIDI OPUS VORBIS) &&
    build_library /usr/src/googletest -DBUILD_GMOCK=OFF &&
    cp /usr/share/doc/g++-mingw-w64-x86-64-posix/copyright "$prefix/licences/gcc.txt" &&
    cp /usr/share/doc/mingw-w64-x86-64-dev/copyright "$prefix/licences/mingw-w64.txt"
}

# Sets `libraries` to the folder that holds them, after building what is not there yet.
need_libraries() {
  local toolchain=$PWD/tools/mingw.cmake key work
  key=$({ declare -f build_library library build_libraries && cat "$toolchain" && x86_64-w64-mingw32-g++-posix --version; } |
    sha256sum | cut -c 1-12)
  libraries=$windows_cache/windows-$key
  [ -d "$libraries" ] && return
  mkdir -p "$windows_cache"
  work=$(mktemp -d "$windows_cache/building-XXXXXX")
  if (cd "$work" && build_libraries "$work/prefix" "$toolchain") 3>&1 >"$work.log" 2>&1; then
    mv "$work/prefix" "$libraries"
    rm -rf "$work" "$work.log"
  else
    tail -n 40 "$work.log" >&2
    echo "The libraries for Windows could not be built; all that was said is in $work.log" >&2
    rm -rf "$work"
    return 1
  fi
}

# Builds what is named, or all that is packed, in build-windows/.
build_windows() {
  local programs=(korvane korvane-level korvane-replay folders)
  [ $# -eq 0 ] || programs=("$@")
  # For programs that run while others are built, and in tests.
  export WINEPREFIX=$windows_cache/wine WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='
  need_libraries &&
    cmake -S . -B build-windows -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/tools/mingw.cmake" \
      -DLIBRARIES="$libraries" >/dev/null &&
    ninja -C build-windows --quiet "${programs[@]}"
}
