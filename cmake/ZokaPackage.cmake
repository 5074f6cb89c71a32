# Debian packages, made by `./dev package`: zoka (the console tool), zoka-basic (the window
# application, where it is built) and zoka-basic-data (samples and help, for both).
include(GNUInstallDirs)

set(packaging ${CMAKE_SOURCE_DIR}/packaging)
set(packed ${CMAKE_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${packed})
find_program(GZIP gzip)

# Who makes packages answers for them, by Debian's own variables.
if(DEFINED ENV{DEBEMAIL})
  set(CPACK_PACKAGE_CONTACT "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
else()
  set(CPACK_PACKAGE_CONTACT "Zoka-BASIC developers <developers@zoka-basic.example.org>")
endif()
configure_file(${packaging}/changelog.in ${packed}/changelog @ONLY)

# zoka_compress(FILE): makes FILE.gz of it in the folder `packed`.
function(zoka_compress file)
  get_filename_component(name ${file} NAME)
  add_custom_command(
    OUTPUT ${packed}/${name}.gz
    COMMAND ${GZIP} -9nc ${file} > ${packed}/${name}.gz
    DEPENDS ${file}
    VERBATIM)
  add_custom_target(compressed-${name} ALL DEPENDS ${packed}/${name}.gz)
endfunction()

zoka_compress(${packed}/changelog)

# zoka_install_docs(COMPONENT): what Debian wants of each package.
function(zoka_install_docs component)
  install(FILES ${CMAKE_SOURCE_DIR}/README.md ${packaging}/copyright ${packed}/changelog.gz
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${component} COMPONENT ${component})
endfunction()

# zoka_install_manual(COMPONENT): packaging/COMPONENT.1, compressed.
function(zoka_install_manual component)
  zoka_compress(${packaging}/${component}.1)
  install(FILES ${packed}/${component}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
          COMPONENT ${component})
endfunction()

set(CPACK_COMPONENTS_ALL zoka zoka-basic-data)
install(TARGETS zoka RUNTIME COMPONENT zoka)
zoka_install_docs(zoka)
zoka_install_manual(zoka)
if(TARGET zoka-basic)
  list(APPEND CPACK_COMPONENTS_ALL zoka-basic)
  install(TARGETS zoka-basic RUNTIME COMPONENT zoka-basic)
  zoka_install_docs(zoka-basic)
  zoka_install_manual(zoka-basic)
  install(FILES ${packaging}/zoka-basic.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT zoka-basic)
  install(FILES ${packaging}/zoka-basic.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT zoka-basic)
  install(FILES ${packaging}/zoka-basic.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT zoka-basic)
endif()
# The texts of the catalogues are in the programs themselves.
install(DIRECTORY ${CMAKE_SOURCE_DIR}/samples DESTINATION ${CMAKE_INSTALL_DATADIR}/zoka-basic
        COMPONENT zoka-basic-data)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/help
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zoka-basic/docs COMPONENT zoka-basic-data)
zoka_install_docs(zoka-basic-data)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Libraries that are linked are found by dpkg-shlibdeps. These are loaded when they are needed, or
# are files that the programs read.
set(loaded "libfluidsynth3, libasound2 | libasound2t64, timgm6mb-soundfont, fonts-unifont")
string(APPEND loaded ", fonts-ipafont-gothic")
set(data "zoka-basic-data (= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_ZOKA_PACKAGE_NAME zoka)
set(CPACK_DEBIAN_ZOKA_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_ZOKA_PACKAGE_DEPENDS "${loaded}")
set(CPACK_DEBIAN_ZOKA_PACKAGE_RECOMMENDS "zoka-basic-data")
set(CPACK_DEBIAN_ZOKA_DESCRIPTION
    "Line-numbered BASIC of Japanese personal computers
Runs programs of the 1980s in terminals and pipelines: kana and kanji, graphics
as pictures, music as sound or as files.")

set(CPACK_DEBIAN_ZOKA-BASIC_PACKAGE_NAME zoka-basic)
set(CPACK_DEBIAN_ZOKA-BASIC_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_ZOKA-BASIC_PACKAGE_DEPENDS "${loaded}, ${data}")
set(CPACK_DEBIAN_ZOKA-BASIC_PACKAGE_RECOMMENDS
    "qt6-wayland, pipewire-pulse | pulseaudio, shared-mime-info, xdg-utils")
set(CPACK_DEBIAN_ZOKA-BASIC_PACKAGE_SUGGESTS "zoka")
set(CPACK_DEBIAN_ZOKA-BASIC_DESCRIPTION
    "Development environment for a line-numbered BASIC
Editor, compiler, debugger and the simulated 640 by 400 screen of Japanese
personal computers of the 1980s, with kana and kanji, mouse and music.")

set(CPACK_DEBIAN_ZOKA-BASIC-DATA_PACKAGE_NAME zoka-basic-data)
set(CPACK_DEBIAN_ZOKA-BASIC-DATA_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_ZOKA-BASIC-DATA_DESCRIPTION
    "Samples and help of Zoka-BASIC
Programs to run, look at and change, and the help in English and Japanese.")
include(CPack)
