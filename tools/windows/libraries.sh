# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# Builds the libraries from their sources and installs them into the prefix in the making, $STAGE.

readonly TOOLCHAIN="${HERE%/tools/windows}/cmake/toolchains/mingw-w64-x86_64.cmake"

# Settings the user has for other builds would end up in these.
clean_environment() {
    unset CFLAGS CXXFLAGS CPPFLAGS LDFLAGS RCFLAGS DESTDIR NOLVEX_WINDOWS_PREFIX CMAKE_PREFIX_PATH \
        CMAKE_GENERATOR CMAKE_TOOLCHAIN_FILE CMAKE_C_COMPILER_LAUNCHER CMAKE_CXX_COMPILER_LAUNCHER \
        CPATH C_INCLUDE_PATH CPLUS_INCLUDE_PATH LIBRARY_PATH
    # Google Benchmark asks git for its version, and the cache may lie in somebody's repository.
    export GIT_CEILING_DIRECTORIES="$WORK/source"
    # What the compiler cache has to be told before it deals with precompiled headers.
    export CCACHE_SLOPPINESS=pch_defines,time_macros
    # What a build writes by mistake goes where it is removed with the rest.
    cd -- "$WORK" || die "there is no $WORK"
}

# Builds a CMake project and installs it.
build() {
    local title="$1" source="$2" build="$WORK/build/$1" started=$SECONDS flags launcher=()
    shift 2
    # Assertion messages name files; they are not to name the directories of this machine.
    flags="-ffile-prefix-map=$WORK/source/= -ffile-prefix-map=$STAGE/="
    if command -v ccache >/dev/null; then
        launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
        # This, too, is for precompiled headers.
        flags+=' -fpch-preprocess'
    fi
    say "building $title"
    # The directory for libraries carries its type: libjpeg-turbo takes it for a path relative to
    # the current directory otherwise.
    must "configuring $title" \
        cmake -S "$source" -B "$build" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$TOOLCHAIN" -DNOLVEX_WINDOWS_PREFIX="$STAGE" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" \
        -DCMAKE_INSTALL_PREFIX="$STAGE" -DCMAKE_INSTALL_LIBDIR:STRING=lib \
        -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF -DCMAKE_EXPORT_NO_PACKAGE_REGISTRY=ON \
        "${launcher[@]}" "$@"
    # Ninja itself and not cmake --build, so that a signal ends it in good order.
    must "building $title" ninja -C "$build" -j "${NOLVEX_JOBS:-$(nproc)}"
    must "installing $title" cmake --install "$build"
    # The build trees are large and not needed any more.
    rm -rf -- "$build"
    say "building $title: done in $((SECONDS - started)) s"
}

build_small_libraries() {
    build libpng "$WORK/source/libpng1.6" -DPNG_SHARED=OFF -DPNG_TESTS=OFF
    build libjpeg "$WORK/source/libjpeg-turbo" -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF -DWITH_SIMD=OFF
    build tiff "$WORK/source/tiff" -DBUILD_SHARED_LIBS=OFF \
        -Dtiff-tools=OFF -Dtiff-tests=OFF -Dtiff-docs=OFF -Dtiff-contrib=OFF \
        -Djbig=OFF -Dlzma=OFF -Dzstd=OFF -Dwebp=OFF -Dlerc=OFF -Dlibdeflate=OFF
    build libwebp "$WORK/source/libwebp" -DBUILD_SHARED_LIBS=OFF \
        -DWEBP_BUILD_{ANIM_UTILS,CWEBP,DWEBP,GIF2WEBP,IMG2WEBP,VWEBP,WEBPINFO,LIBWEBPMUX,WEBPMUX,EXTRAS}=OFF
    build imath "$WORK/source/imath" -DBUILD_SHARED_LIBS=OFF -DBUILD_TESTING=OFF
    build openexr "$WORK/source/openexr" -DBUILD_SHARED_LIBS=OFF -DBUILD_TESTING=OFF \
        -DOPENEXR_{BUILD_TOOLS,INSTALL_TOOLS,INSTALL_EXAMPLES}=OFF
    build pugixml "$WORK/source/pugixml" -DBUILD_SHARED_LIBS=OFF
    build googletest /usr/src/googletest -DBUILD_SHARED_LIBS=OFF
    build benchmark "$WORK/source/benchmark" -DBUILD_SHARED_LIBS=OFF -DBENCHMARK_ENABLE_WERROR=OFF \
        -DBENCHMARK_ENABLE_TESTING=OFF -DBENCHMARK_ENABLE_GTEST_TESTS=OFF -DBENCHMARK_INSTALL_DOCS=OFF
}

# The archive of wxWidgets is without copies of the libraries for images, which have to be there
# before. The level of debugging help stays at its default, with which there are assertions. HELP
# has to go where HTML goes.
build_wxwidgets() {
    build wxwidgets "$WORK/source/wxwidgets3.2" \
        -DwxBUILD_SHARED=ON -DwxBUILD_MONOLITHIC=ON -DwxBUILD_VENDOR=custom \
        -DwxUSE_ZLIB=sys -DwxUSE_LIBPNG=sys -DwxUSE_LIBJPEG=sys -DwxUSE_LIBTIFF=sys \
        -DwxUSE_ACCESSIBILITY=ON -DwxUSE_UIACTIONSIMULATOR=ON -DwxUSE_SOCKETS=ON \
        -DwxUSE_CLIPBOARD=ON -DwxUSE_DRAG_AND_DROP=ON \
        -DwxUSE_{EXPAT,XML,XRC,AUI,RIBBON,PROPGRID,RICHTEXT,STC,HTML,HELP,WXHTML_HELP,MS_HTML_HELP}=OFF \
        -DwxUSE_{WEBVIEW,MEDIACTRL,OPENGL,REGEX,NANOSVG,DEBUGREPORT}=OFF
}

# Makes the package of wxWidgets answer to what it is asked for elsewhere: a toolkit in one library
# has no components but itself, and a debug build looks for a setup.h of its own.
complete_wxwidgets_package() {
    local settings="$STAGE/lib/gcc_x64_dll/mswu"
    cp -R -- "$settings" "${settings}d"
    cat >>"$STAGE/lib/cmake/wxWidgets/gcc_x64_dll/wxWidgetsTargets.cmake" <<'CMAKE'

foreach(_wx_component IN ITEMS base net core)
  if(NOT TARGET wx::wx${_wx_component})
    add_library(wx::wx${_wx_component} INTERFACE IMPORTED)
    set_target_properties(wx::wx${_wx_component} PROPERTIES INTERFACE_LINK_LIBRARIES wx::wxmono)
  endif()
endforeach()
unset(_wx_component)
CMAKE
}

# The headers of utfcpp with a CMake package like the one of Debian, whose own files hold paths of
# this machine.
install_utfcpp() {
    local package="$STAGE/lib/cmake/utf8cpp" version
    version="$(dpkg-query -W -f '${Version}' libutfcpp-dev)"
    mkdir -p -- "$STAGE/include" "$package"
    cp -R -- /usr/include/utf8cpp "$STAGE/include/"
    cat >"$package/utf8cppConfig.cmake" <<'CMAKE'
if(NOT TARGET utf8cpp)
  get_filename_component(_utf8cpp_prefix "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
  add_library(utf8cpp INTERFACE IMPORTED)
  set_target_properties(utf8cpp PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES "${_utf8cpp_prefix}/include/utf8cpp")
  add_library(utf8::cpp ALIAS utf8cpp)
  unset(_utf8cpp_prefix)
endif()
CMAKE
    cat >"$package/utf8cppConfigVersion.cmake" <<CMAKE
set(PACKAGE_VERSION "${version%-*}")
if(NOT PACKAGE_VERSION VERSION_LESS PACKAGE_FIND_VERSION)
  set(PACKAGE_VERSION_COMPATIBLE TRUE)
endif()
if(PACKAGE_VERSION VERSION_EQUAL PACKAGE_FIND_VERSION)
  set(PACKAGE_VERSION_EXACT TRUE)
endif()
CMAKE
}

# The header of stb that decodes images, where Debian's package has it, too.
install_stb() {
    mkdir -p -- "$STAGE/include/stb"
    cp -- /usr/include/stb/stb_image.h "$STAGE/include/stb/"
}

# The DLLs of the compiler and zlib's, so that one place has all that a program needs.
install_runtime() {
    local name path
    mkdir -p -- "$STAGE/bin"
    for name in "${RUNTIME_DLLS[@]}"; do
        path="$(x86_64-w64-mingw32-g++-posix -print-file-name="$name")"
        # The compiler prints the bare name of what it does not find.
        [[ $path == /* && -f $path ]] || die "the compiler does not know where $name is"
        cp -- "$path" "$STAGE/bin/$name"
    done
}

# The prefix is about to be renamed, so the files that hold its present name have to lose it.
forget_stage() {
    local texts
    # pkg-config knows where its files lie. What wxWidgets notes serves Unix, and Makefiles of its own.
    find "$STAGE/lib/pkgconfig" -name '*.pc' -exec sed -i "s,$STAGE,\${pcfiledir}/../..,g" {} +
    sed -i "s,$STAGE,.,g" "$STAGE/lib/gcc_x64_dll/mswu/wx/setup.h"
    rm -f -- "$STAGE/lib/gcc_x64_dll/mswu/build.cfg"
    texts="$(grep -rlIF -e "$WORK" "$STAGE" || true)"
    [[ -z $texts ]] || die "these files hold the name of the build directory: $texts"
}

# A library that was built differently than expected is noticed here rather than by those who use it.
check_libraries() {
    local file setting
    for file in \
        lib/lib{png16,jpeg,tiff,webp,webpdemux,pugixml,gtest,gtest_main,gmock,gmock_main,benchmark,benchmark_main}.a \
        lib/cmake/{wxWidgets/wxWidgets,GTest/GTest,benchmark/benchmark,utf8cpp/utf8cpp}Config.cmake \
        lib/cmake/{Imath/Imath,OpenEXR/OpenEXR}Config.cmake include/webp/{decode,demux}.h \
        lib/cmake/pugixml/pugixml-config.cmake \
        include/{wx/wx.h,pugixml.hpp,gtest/gtest.h,gmock/gmock.h,benchmark/benchmark.h,utf8cpp/utf8.h,stb/stb_image.h}; do
        [[ -s $STAGE/$file ]] || die "the build left no $file"
    done
    print_runtime_dlls "$STAGE" >/dev/null
    for setting in ACCESSIBILITY SOCKETS UIACTIONSIMULATOR CLIPBOARD DRAG_AND_DROP LIBPNG LIBJPEG LIBTIFF ZLIB; do
        grep -Eq "^#define wxUSE_$setting +1\$" "$STAGE/lib/gcc_x64_dll/mswu/wx/setup.h" ||
            die "wxWidgets was configured without wxUSE_$setting"
    done
}

build_libraries() {
    clean_environment
    build_small_libraries
    build_wxwidgets
    # Programs and manuals that come with the libraries are of no use here.
    rm -rf -- "${STAGE:?}"/{bin,share}
    install_utfcpp
    install_stb
    install_runtime
    forget_stage
    complete_wxwidgets_package
    check_libraries
}
