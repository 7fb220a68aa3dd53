# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian package: cpack in the build folder, or packaging/build-deb.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME veltrano)
set(CPACK_PACKAGE_VENDOR "The Veltrano developers")
set(CPACK_PACKAGE_CONTACT "The Veltrano developers <maintainers@veltrano.org>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://veltrano.org/)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1) # the revision at the head of the changelog
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Qt's plugins for SVG, X11, the offscreen platform and printing come with the libraries themselves.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-dejavu-core)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "hicolor-icon-theme, pipewire-pulse | pulseaudio, \
qt6-image-formats-plugins, qt6-speech-speechd-plugin, \
qt6-translations-l10n, qt6-wayland, speech-dispatcher")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "piano tuner with strobe, needle and numbers")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "\
Veltrano listens to a microphone, names the piano key that is played and shows
how many cents it lies from its target: on a strobe, a needle, lights and in
numbers. It plays reference tones, and shows the partials of a note or chord.
.
Historical temperaments and stretch tables for several sizes of piano are
included, with an editor for each; Scala scales are imported and exported.
Readings can be spoken, and every command is on the keyboard.
.
veltrano-cli does the same without a window. No network is used.")

# Policy's documents, compressed manual pages and, with SOURCE_DATE_EPOCH, the times of all files.
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/CompleteFiles.cmake)
include(CPack)
